#include "controls/ButtonCtrl.h"

#include "Toolkit/TickCount.h"
#include "controls/ImageCtrl.h"
#include "controls/LabelPainter.h"
#include "factory/ControlIds.h"
#include "util/Util.h"

#include <wx/dcclient.h>

namespace UIKit {

wxBEGIN_EVENT_TABLE(ButtonCtrl, PanelCtrl)
    EVT_LEFT_DOWN(ButtonCtrl::onLeftDown)
    EVT_LEFT_UP(ButtonCtrl::onLeftUp)
wxEND_EVENT_TABLE()

ButtonCtrl::ButtonCtrl(wxWindow* parent, int id, const wxRect& bounds) : PanelCtrl(parent, id, bounds, wxNO_BORDER)
{
}

bool ButtonCtrl::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    // Typed before the panel loads, which asks for the button's images.
    m_text = descriptor.DynamicCast<StaticTextCtrlDescriptor>();
    m_button = descriptor.DynamicCast<ButtonCtrlDescriptor>();
    PanelCtrl::LoadDescriptor(descriptor);
    if (m_text)
        SetControlLabel(m_text->GetLabel());
    if (m_button && !m_button->GetTooltip().empty())
        SetToolTip(wxString(m_button->GetTooltip()));
    updateCursor(IsEnabled());
    return true;
}

void ButtonCtrl::loadImages(const wxSize& size)
{
    if (!m_button) {
        PanelCtrl::loadImages(size);
        return;
    }
    m_images.normal = imageAt(m_button->GetEnabledImage(), size);
    m_images.disabled = imageAt(m_button->GetDisabledImage(), size);
    m_images.selected = imageAt(m_button->GetSelectedImage(), size);
    m_images.over = imageAt(m_button->GetOverImage(), size);
    m_images.pressed = imageAt(m_button->GetPressedImage(), size);
}

void ButtonCtrl::SetControlLabel(const TString<wchar_t>& text)
{
    m_labelArea = LabelPainter::Area(GetSize(), m_descriptor.get());
    const Toolkit::smart_ptr<FontDescriptor> font = m_text ? m_text->GetFont() : Toolkit::smart_ptr<FontDescriptor>();
    wxClientDC dc(this);
    Util::FormatLabel(dc, m_labelArea.GetSize(), font, text, Util::OneLineEllipsis, m_label);
    RefreshUpdate(false);
}

bool ButtonCtrl::Enable(bool enable)
{
    updateCursor(enable);
    return Control::Enable(enable);
}

void ButtonCtrl::updateCursor(bool enabled)
{
    if (enabled && GetId() != ID_SPACER)
        SetHandCursor();
    else
        RestorePreviousCursor();
}

bool ButtonCtrl::AcceptsFocusFromKeyboard() const
{
    return IsEnabled() && GetId() != ID_SPACER;
}

ImageCtrl* ButtonCtrl::currentImage() const
{
    return m_images.Pick(IsEnabled(), IsSelected(), IsInside() || HasFocus(), m_pressed);
}

void ButtonCtrl::DrawCustom(wxDC& dc)
{
    PanelCtrl::DrawCustom(dc);
    LabelPainter::Draw(dc, m_label, m_labelArea, m_text ? m_text->GetPlacement() : int(wxALIGN_CENTER),
                       m_text ? m_text->GetFont().get() : nullptr, IsEnabled());
}

void ButtonCtrl::OnLeftDown(wxMouseEvent& event)
{
    if (!HasCapture())
        CaptureMouse();
    if (IsEnabled()) {
        m_pressed = true;
        RefreshUpdate(false);
    }
    event.Skip();
}

void ButtonCtrl::OnLeftUp(wxMouseEvent& event)
{
    if (HasCapture())
        ReleaseMouse();
    if (IsEnabled()) {
        m_pressed = false;
        RefreshUpdate(false);
        if (IsInside() && uint32_t(Toolkit::GetTickCount()) - m_lastClickTime > c_clickIntervalMs)
            emitClick();
    }
    event.Skip();
}

void ButtonCtrl::OnApplyControl(wxCommandEvent&)
{
    emitClick();
}

void ButtonCtrl::emitClick()
{
    wxCommandEvent click(wxEVT_COMMAND_BUTTON_CLICKED, GetId());
    click.SetEventObject(this);
    click.SetInt(-1);
    GetEventHandler()->ProcessEvent(click);
    // The interval starts when the click's handling is over.
    m_lastClickTime = uint32_t(Toolkit::GetTickCount());
}

} // namespace UIKit

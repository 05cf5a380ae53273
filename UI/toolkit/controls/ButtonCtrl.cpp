#include "controls/ButtonCtrl.h"

#include "Toolkit/TickCount.h"
#include "appearance/Appearance.h"
#include "controls/ImageCtrl.h"
#include "descriptors/ButtonCtrlDescriptor.h"
#include "factory/ControlIds.h"
#include "module/Util.h"

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
    PanelCtrl::LoadDescriptor(descriptor);
    loadButtonImages(descriptor->GetBounds().GetSize());
    if (auto text = descriptor.DynamicCast<StaticTextCtrlDescriptor>())
        SetControlLabel(text->GetLabel());
    if (auto button = descriptor.DynamicCast<ButtonCtrlDescriptor>())
        if (!button->GetTooltip().empty())
            SetToolTip(wxString(button->GetTooltip()));
    updateCursor(IsEnabled());
    return true;
}

void ButtonCtrl::loadButtonImages(const wxSize& size)
{
    auto button = m_descriptor.DynamicCast<ButtonCtrlDescriptor>();
    auto appearance = Appearance::Instance();
    if (!button || !appearance)
        return;
    m_normalImage = appearance->ImageCtrlWithIdentifier(button->GetEnabledImage(), size);
    m_disabledButtonImage = appearance->ImageCtrlWithIdentifier(button->GetDisabledImage(), size);
    m_overImage = appearance->ImageCtrlWithIdentifier(button->GetOverImage(), size);
    m_pressedImage = appearance->ImageCtrlWithIdentifier(button->GetPressedImage(), size);
    m_selectedButtonImage = appearance->ImageCtrlWithIdentifier(button->GetSelectedImage(), size);
}

void ButtonCtrl::SetControlLabel(const TString<wchar_t>& text)
{
    const wxSize size = GetSize();
    m_labelArea = wxRect(2, 2, size.x - 4, size.y - 4);
    Toolkit::smart_ptr<FontDescriptor> font;
    if (auto description = m_descriptor.DynamicCast<StaticTextCtrlDescriptor>())
        font = description->GetFont();
    if (m_descriptor) {
        // Padding is given as left, top, right, bottom.
        const wxRect& padding = m_descriptor->GetPadding();
        if (padding != wxRect()) {
            const wxSize bounds = m_descriptor->GetBounds().GetSize();
            m_labelArea = wxRect(padding.x, padding.y, bounds.x - padding.x - padding.width,
                                 bounds.y - padding.y - padding.height);
        }
    }
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

void ButtonCtrl::OnSize(wxSizeEvent& event)
{
    PanelCtrl::OnSize(event);
    loadButtonImages(GetSize());
}

ImageCtrl* ButtonCtrl::currentImage() const
{
    if (!IsEnabled() && m_disabledButtonImage)
        return m_disabledButtonImage.get();
    if (IsSelected() && m_selectedButtonImage)
        return m_selectedButtonImage.get();
    if (IsInside()) {
        if (m_pressed && m_pressedImage)
            return m_pressedImage.get();
        if (m_overImage)
            return m_overImage.get();
    }
    return m_normalImage.get();
}

void ButtonCtrl::DrawCustom(wxDC& dc)
{
    if (ImageCtrl* image = currentImage())
        image->Draw(dc, wxPoint(0, 0));
    if (m_label.empty())
        return;
    int placement = wxALIGN_CENTER;
    if (auto description = m_descriptor.DynamicCast<StaticTextCtrlDescriptor>()) {
        placement = description->GetPlacement();
        if (const auto& font = description->GetFont()) {
            const wxColour& colour = IsEnabled() ? font->GetForeColour() : font->GetDisabledColour();
            if (colour.IsOk())
                dc.SetTextForeground(colour);
            dc.SetFont(font->GetFont());
        }
    }
    dc.DrawLabel(wxString(m_label), wxNullBitmap, m_labelArea, placement, -1);
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

#include "controls/StaticTextCtrl.h"

#include "descriptors/StaticTextCtrlDescriptor.h"
#include "module/Util.h"

#include <wx/dcclient.h>

namespace UIKit {

wxBEGIN_EVENT_TABLE(StaticTextCtrl, PanelCtrl)
    EVT_LEFT_DOWN(StaticTextCtrl::onLeftDown)
    EVT_LEFT_UP(StaticTextCtrl::onLeftUp)
wxEND_EVENT_TABLE()

StaticTextCtrl::StaticTextCtrl(wxWindow* parent, int id, const wxRect& bounds)
    : PanelCtrl(parent, id, bounds, wxNO_BORDER)
{
}

bool StaticTextCtrl::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    PanelCtrl::LoadDescriptor(descriptor);
    if (auto text = descriptor.DynamicCast<StaticTextCtrlDescriptor>()) {
        SetControlLabel(text->GetLabel());
        m_alignment = text->GetPlacement();
    }
    return true;
}

void StaticTextCtrl::SetControlLabel(const TString<wchar_t>& text)
{
    if (text == m_rawText)
        return;
    m_rawText = text;
    auto description = m_descriptor.DynamicCast<StaticTextCtrlDescriptor>();
    if (!description)
        return;
    const wxSize size = GetSize();
    m_labelArea = wxRect(2, 2, size.x - 4, size.y - 4);
    const wxRect& padding = description->GetPadding();
    if (padding != wxRect())
        m_labelArea = wxRect(padding.x, padding.y, size.x - 4 - padding.x - padding.width,
                             size.y - 4 - padding.y - padding.height);
    wxClientDC dc(this);
    Util::FormatLabelMultiline(dc, m_labelArea.GetSize(), description->GetFont(), text, m_label);
    Refresh(true);
    Update();
}

void StaticTextCtrl::SetWeight(FontDescriptor::FontWeight weight)
{
    if (int(weight) == m_weight)
        return;
    m_weight = weight;
    auto description = m_descriptor.DynamicCast<StaticTextCtrlDescriptor>();
    if (description && description->GetFont())
        description->GetFont()->SetWeight(weight);
    const TString<wchar_t> shown = m_label;
    m_rawText.clear();
    SetControlLabel(shown);
}

void StaticTextCtrl::DrawCustom(wxDC& dc)
{
    PanelCtrl::DrawCustom(dc);
    if (m_label.empty())
        return;
    if (auto description = m_descriptor.DynamicCast<StaticTextCtrlDescriptor>())
        if (const auto& font = description->GetFont()) {
            const wxColour& colour = IsEnabled() ? font->GetForeColour() : font->GetDisabledColour();
            if (colour.IsOk())
                dc.SetTextForeground(colour);
            dc.SetFont(font->GetFont());
        }
    dc.DrawLabel(wxString(m_label), wxNullBitmap, m_labelArea, m_alignment, -1);
}

void StaticTextCtrl::passToParent(wxEvent& event)
{
    if (wxWindow* parent = GetParent())
        parent->GetEventHandler()->ProcessEvent(event);
}

void StaticTextCtrl::OnEnterWindow(wxMouseEvent& event) { passToParent(event); }
void StaticTextCtrl::OnLeaveWindow(wxMouseEvent& event) { passToParent(event); }
void StaticTextCtrl::OnLeftDown(wxMouseEvent& event) { passToParent(event); }
void StaticTextCtrl::OnLeftUp(wxMouseEvent& event) { passToParent(event); }

} // namespace UIKit

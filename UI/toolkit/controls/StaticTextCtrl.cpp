#include "controls/StaticTextCtrl.h"

#include "controls/LabelPainter.h"
#include "util/Util.h"

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
    m_text = descriptor.DynamicCast<StaticTextCtrlDescriptor>();
    if (m_text) {
        SetControlLabel(m_text->GetLabel());
        m_alignment = m_text->GetPlacement();
    }
    return true;
}

void StaticTextCtrl::SetControlLabel(const TString<wchar_t>& text)
{
    if (text == m_rawText)
        return;
    m_rawText = text;
    if (!m_text)
        return;
    m_labelArea = LabelPainter::Area(GetSize(), m_text.get());
    wxClientDC dc(this);
    Util::FormatLabelMultiline(dc, m_labelArea.GetSize(), m_text->GetFont(), text, m_label);
    Refresh(true);
    Update();
}

void StaticTextCtrl::SetWeight(FontDescriptor::FontWeight weight)
{
    if (int(weight) == m_weight)
        return;
    m_weight = weight;
    if (m_text && m_text->GetFont())
        m_text->GetFont()->SetWeight(weight);
    // Fitted again from the text as given, not from its shortened form.
    const TString<wchar_t> text = m_rawText;
    m_rawText.clear();
    SetControlLabel(text);
}

void StaticTextCtrl::DrawCustom(wxDC& dc)
{
    PanelCtrl::DrawCustom(dc);
    LabelPainter::Draw(dc, m_label, m_labelArea, m_alignment, m_text ? m_text->GetFont().get() : nullptr,
                       IsEnabled());
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

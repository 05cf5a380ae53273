#include "lists/ListItemCtrl.h"

#include "controls/ImageCtrl.h"
#include "controls/LabelPainter.h"
#include "controls/ToolBar.h"
#include "util/Util.h"

#include <cctype>

namespace UIKit {

ListItemCtrl::ListItemCtrl(wxWindow* parent, int id, const wxRect& bounds) : ButtonCtrl(parent, id, bounds) {}

TString<wchar_t> ListItemCtrl::LowerSingleByte(const TString<wchar_t>& text)
{
    TString<wchar_t> lower(text);
    for (wchar_t& c : lower)
        if (c >= 0 && c < 256)
            c = wchar_t(std::tolower(int(c)));
    return lower;
}

bool ListItemCtrl::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    // Typed first: the button part fits the descriptor's label through
    // SetControlLabel, which reads the font.
    m_text = descriptor.DynamicCast<StaticTextCtrlDescriptor>();
    ButtonCtrl::LoadDescriptor(descriptor);
    m_checkMark = descriptor->GetTemplate(L"CheckMark", false).DynamicCast<ButtonCtrlDescriptor>();
    if (m_checkMark) {
        const wxSize size = m_checkMark->GetBounds().GetSize();
        m_checkMarkOn = imageAt(m_checkMark->GetSelectedImage(), size);
        m_checkMarkOff = imageAt(m_checkMark->GetNormalImage(), size);
    }
    UpdateLayout();
    return true;
}

ToolBar* ListItemCtrl::GetContextBar()
{
    if (!m_contextBar)
        m_contextBar = Util::FindControl<ToolBar>(this, L"ContextBar", false);
    return m_contextBar;
}

void ListItemCtrl::SetControlLabel(const TString<wchar_t>& label)
{
    m_labelText = label;
    if (Control* child = mainLabel())
        child->SetControlLabel(label);
    else
        m_fitNeeded = true;
    RefreshUpdate(true);
    setStringsFromLabel(label);
}

void ListItemCtrl::setStringsFromLabel(const TString<wchar_t>& label)
{
    m_sortString = LowerSingleByte(label);
    m_filterString = m_sortString;
    m_filterGeneration = c_noGeneration;
}

Control* ListItemCtrl::mainLabel()
{
    if (!m_mainLabel)
        m_mainLabel = Util::FindControl<Control>(this, L"MainLabel", false);
    return m_mainLabel;
}

void ListItemCtrl::fitLabel(wxDC& dc)
{
    m_fitNeeded = false;
    m_labelArea = LabelPainter::Area(GetSize(), m_descriptor.get());
    const auto font = m_text ? m_text->GetFont() : Toolkit::smart_ptr<FontDescriptor>();
    // A label font lets the text run over several lines.
    if (font)
        Util::FormatLabelMultiline(dc, m_labelArea.GetSize(), font, m_labelText, m_label);
    else
        Util::FormatLabel(dc, m_labelArea.GetSize(), font, m_labelText, Util::OneLineEllipsis, m_label);
}

void ListItemCtrl::SetSortString(const TString<wchar_t>& text)
{
    m_sortString = LowerSingleByte(text);
}

void ListItemCtrl::SetFilterString(const TString<wchar_t>& text)
{
    m_filterString = text;
    m_filterGeneration = c_noGeneration;
}

bool ListItemCtrl::FilterMatch(const TString<wchar_t>& filter)
{
    return m_filterString.HasSubstring(filter);
}

void ListItemCtrl::SetEditMode(bool editMode)
{
    if (editMode == m_editMode)
        return;
    m_editMode = editMode;
    RefreshUpdate(true);
}

void ListItemCtrl::SetIndicator(int indicator)
{
    const wchar_t* name = indicator == Next ? L"NextIndicator" : indicator == Modal ? L"ModalIndicator" : nullptr;
    if (indicator == None) {
        m_indicator = {};
    } else if (name && m_descriptor) {
        auto panel = m_descriptor->GetTemplate(name, false).DynamicCast<PanelCtrlDescriptor>();
        m_indicator = panel ? imageAt(panel->GetNormalImage(), panel->GetBounds().GetSize())
                            : Toolkit::smart_ptr<ImageCtrl>();
        m_indicatorPosition = panel ? panel->GetBounds().GetPosition() : wxPoint();
    } else {
        return;
    }
    RefreshUpdate(true);
}

void ListItemCtrl::UpdateLayout()
{
    if (!m_checkMark)
        return;
    const wxSize item = GetSize();
    const wxSize mark = m_checkMark->GetBounds().GetSize();
    const int align = m_checkMark->GetParentPosition();
    auto place = [](int flags, int start, int centre, int end, int free) {
        if (flags & end)
            return free - c_checkMarkMargin;
        if (flags & centre)
            return free / 2;
        return flags & start ? c_checkMarkMargin : 0;
    };
    m_checkMarkPosition.x = place(align, 0x111, 0x222, 0x444, item.x - mark.x);
    m_checkMarkPosition.y = place(align, 0x00F, 0x0F0, 0xF00, item.y - mark.y);
}

void ListItemCtrl::DrawCustom(wxDC& dc)
{
    // The button's images; the label is the row's own.
    PanelCtrl::DrawCustom(dc);
    if (m_fitNeeded)
        fitLabel(dc);
    LabelPainter::Draw(dc, m_label, m_labelArea, m_text ? m_text->GetPlacement() : int(wxALIGN_CENTER),
                       m_text ? m_text->GetFont().get() : nullptr, IsEnabled());
    if (!m_editMode) {
        if (m_indicator)
            m_indicator->Draw(dc, m_indicatorPosition);
        return;
    }
    const auto& mark = IsSelected() ? m_checkMarkOn : m_checkMarkOff;
    if (mark)
        mark->Draw(dc, m_checkMarkPosition);
}

void ListItemCtrl::ShowContextBar(bool show)
{
    if (ToolBar* bar = GetContextBar())
        bar->Show(show);
}

void ListItemCtrl::AutoHideContextBar()
{
    if (ToolBar* bar = GetContextBar(); bar && bar->AutoHide())
        bar->Show(false);
}

void ListItemCtrl::OnEnterWindow(wxMouseEvent& event)
{
    ButtonCtrl::OnEnterWindow(event);
    if (ShouldShowContextBar())
        ShowContextBar(true);
}

void ListItemCtrl::OnLeaveWindow(wxMouseEvent& event)
{
    // Moving onto a child (the context bar's buttons) is not leaving the row.
    const wxPoint pointer = wxGetMousePosition();
    if (Util::IsWindowIsThisOrChildRecursive(this, wxFindWindowAtPoint(pointer)))
        return;
    ButtonCtrl::OnLeaveWindow(event);
    AutoHideContextBar();
}

void ListItemCtrl::OnSize(wxSizeEvent& event)
{
    UpdateLayout();
    ButtonCtrl::OnSize(event);
    // The label was fitted to the old size.
    m_fitNeeded = !m_labelText.empty() && !mainLabel();
}

} // namespace UIKit

#include "HistoryScreen.h"

#include "HistoryPlugin.h"

#include "appearance/Appearance.h"
#include "controls/EditTextCtrl.h"
#include "util/Util.h"

#include <array>

namespace historyplugin {
namespace {

const wchar_t* const c_strList = L"HistoryList";
const wchar_t* const c_strFilter = L"SearchText";
const wchar_t* const c_strEmpty = L"EmptyText";

struct SortButton {
    const wchar_t* name;
    HistoryRows::Column column;
    const char* label;
};

const std::array<SortButton, 3> c_sortButtons = {{
    {L"SortDate", HistoryRows::ByDate, "BT_SORT_DATE"},
    {L"SortDuration", HistoryRows::ByDuration, "BT_SORT_DURATION"},
    {L"SortVolume", HistoryRows::ByVolume, "BT_SORT_VOLUME"},
}};

} // namespace

HistoryScreen::HistoryScreen(wxWindow* parent, int id, const wxRect& bounds)
    : ScreenCtrl(parent, id, bounds, false),
      m_rows(c_strRowClass, []() -> const ConnectionHistory& { return HistoryPlugin::History(); })
{
    // Bound handlers run before the screen's table, which would otherwise
    // hand the sort buttons to navigation.
    Bind(wxEVT_BUTTON, &HistoryScreen::onButton, this);
    Bind(wxEVT_TEXT, &HistoryScreen::onText, this);
}

HistoryScreen::~HistoryScreen()
{
    // The list is destroyed after the rows, with the screen's children: it
    // must not call back into them.
    if (m_list) {
        m_list->SetDelegate(nullptr);
        m_list->SetDataSource(nullptr);
    }
}

UIKit::ListCtrl* HistoryScreen::list()
{
    if (!m_list) {
        m_list = UIKit::Util::FindControl<UIKit::ListCtrl>(this, c_strList, true);
        if (m_list) {
            m_list->SetDelegate(&m_rows);
            m_list->SetDataSource(&m_rows);
        }
    }
    return m_list;
}

void HistoryScreen::ScreenSlideEnter()
{
    ScreenCtrl::ScreenSlideEnter();
    Refill();
}

void HistoryScreen::Refill()
{
    UIKit::ListCtrl* rows = list();
    const bool empty = m_rows.getRowCount() == 0;
    if (auto* sentence = UIKit::Util::FindControl<wxWindow>(this, c_strEmpty, true))
        sentence->Show(empty);
    if (!rows)
        return;
    rows->Show(!empty);
    rows->Populate();
    applyFilter();
    markSortButton();
}

void HistoryScreen::markSortButton()
{
    auto appearance = UIKit::Appearance::Instance();
    if (!appearance)
        return;
    for (const auto& sort : c_sortButtons)
        if (auto* button = UIKit::Util::FindControl<UIKit::Control>(this, sort.name, true)) {
            TString<wchar_t> label = appearance->GetStr(sort.label);
            if (sort.column == m_rows.GetColumn())
                label += m_rows.IsAscending() ? L" \u25b2" : L" \u25bc";
            button->SetControlLabel(label);
        }
}

void HistoryScreen::onButton(wxCommandEvent& event)
{
    auto* button = dynamic_cast<wxWindow*>(event.GetEventObject());
    for (const auto& sort : c_sortButtons)
        if (button && button->GetName() == sort.name) {
            m_rows.SortBy(sort.column);
            markSortButton();
            // The sort strings depend on the column: the rows are made again.
            if (UIKit::ListCtrl* rows = list())
                rows->Populate();
            return;
        }
    event.Skip();
}

void HistoryScreen::onText(wxCommandEvent& event)
{
    applyFilter();
    event.Skip();
}

void HistoryScreen::applyFilter()
{
    auto* box = UIKit::Util::FindControl<UIKit::EditTextCtrl>(this, c_strFilter, true);
    if (UIKit::ListCtrl* rows = list(); rows && box)
        rows->SetFilter(box->GetControlLabel());
}

} // namespace historyplugin

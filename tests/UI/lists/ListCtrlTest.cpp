// The list against its data source and delegate: row events in any order
// around a fill, filtering, sorting and selection, clicks, and scrolling;
// the row controls: sort and filter strings, indicators, the checked row's
// state, and an expanding row in its list; the data sources' and
// delegates' own bookkeeping.
#include "../frames/TestDashboard.h"
#include "ListTestSupport.h"

#include "app/App.h"
#include "controls/StatesBoxCtrl.h"
#include "controls/VScrollBar.h"
#include "controls/VScrollCtrl.h"
#include "factory/ControlIds.h"
#include "lists/CheckedListItemCtrl.h"
#include "lists/ContainerListItemCtrl.h"
#include "lists/DataAdapterDataEvent.h"
#include "lists/DataAdapterEvent.h"
#include "lists/ListCtrlDataSource.h"
#include "lists/ListCtrlDelegate.h"

#include <set>
#include <thread>

using namespace UIKit;

namespace liststest {
namespace {

// Steps on data {a, b, c}: F fills; +x appends row x to the data and
// dispatches its ADD; -N erases row N and dispatches its REMOVE; uN=x
// relabels row N and dispatches its UPDATE; AN / UN / RN dispatch alone;
// T appends "t" and dispatches its ADD from a worker thread; p runs the
// queue; s makes decorating drop the last row once.
TEST_F(ListTest, RowEventsAroundAFillNeitherLoseNorDuplicateRows)
{
    struct Case { const char* what; std::vector<std::string> steps; std::string rows; size_t logged; };
    const Case cases[] = {
        {"add queued before a fill", {"+d", "F", "p"}, "a b c d", 0},
        {"remove queued before a fill", {"F", "p", "-2", "F", "p"}, "a b", 0},
        {"remove then add in order", {"F", "-0", "+d", "p"}, "b c d", 0},
        {"add then remove, queued together", {"F", "+d", "-0", "p"}, "b c d", 1},
        {"a fill between an add and an update", {"+d", "F", "u0=z", "p"}, "b c d z", 0},
        {"add from a worker thread", {"F", "T", "p"}, "a b c t", 0},
        {"update relabels and re-sorts", {"F", "u0=z", "p"}, "b c z", 0},
        {"rows past the end", {"F", "A9", "U9", "R9", "p"}, "a b c", 1},
        {"row count shrinking while filling", {"s", "F", "p"}, "a b", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ListCtrl* list = Make();
        Rows rows({L"a", L"b", L"c"});
        ListCtrlDelegate delegate;
        list->SetDelegate(&delegate);
        auto dispatch = [&delegate](wxEventType type, unsigned int row) {
            DataAdapterDataEvent event(type, 0, row);
            delegate.DispatchEvent(event);
        };
        testsupport::LogCapture log;
        for (const std::string& step : c.steps) {
            const char op = step[0];
            const unsigned int row =
                op == '+' || op == 'T' ? unsigned(rows.labels.size()) : unsigned(std::atoi(step.c_str() + 1));
            if (op == 'F') list->SetDataSource(&rows);
            else if (op == 'p') Pump();
            else if (op == '+')
                rows.labels.push_back(std::wstring(1, wchar_t(step[1]))), dispatch(DataAdapterEvent::EVT_DATA_ADD, row);
            else if (op == '-')
                rows.labels.erase(rows.labels.begin() + row), dispatch(DataAdapterEvent::EVT_DATA_REMOVE, row);
            else if (op == 'u')
                rows.labels[row] = std::wstring(1, wchar_t(step.back())),
                dispatch(DataAdapterEvent::EVT_DATA_UPDATE, row);
            else if (op == 'A') dispatch(DataAdapterEvent::EVT_DATA_ADD, row);
            else if (op == 'U') dispatch(DataAdapterEvent::EVT_DATA_UPDATE, row);
            else if (op == 'R') dispatch(DataAdapterEvent::EVT_DATA_REMOVE, row);
            else if (op == 'T')
                rows.labels.push_back(L"t"), std::thread([&] { dispatch(DataAdapterEvent::EVT_DATA_ADD, row); }).join();
            else if (op == 's') rows.onDecorate = [&rows] { rows.labels.pop_back(), rows.onDecorate = nullptr; };
        }
        EXPECT_EQ(Shown(*list), c.rows);
        std::set<int> ids;
        for (const auto* item : list->GetItems())
            ids.insert(item->GetId());
        EXPECT_EQ(ids.size(), list->GetItems().size()) << "ids are unique";
        EXPECT_EQ(list->GetTotalHeight(), ShownHeight(*list));
        EXPECT_EQ(log.Count(L"past the end"), c.logged);
        list->Destroy();
        Pump();
    }
}

// Data {delta, alpha, charlie, bravo, echo}, "alpha" or "echo" selected
// first; the rows shown, the selected row and its position afterwards.
TEST_F(ListTest, FilterSortAndSelectionTogether)
{
    using Op = std::function<void(ListCtrl&)>;
    struct Case { const char* what; const wchar_t* selected; Op op; std::string shown; unsigned int position; };
    const Case cases[] = {
        {"filter hides rows and their height", L"alpha", [](ListCtrl& l) { l.SetFilter(L"A"); },
         "delta alpha charlie bravo", 1},
        {"a row added under a filter takes no place", L"alpha",
         [](ListCtrl& l) { l.SetFilter(L"a"), l.AddItem(L"zulu", int(l.GetFreeIndex()), ListItemCtrl::None); },
         "delta alpha charlie bravo", 1},
        {"a hidden row stays selected", L"echo", [](ListCtrl& l) { l.SetFilter(L"a"); }, "delta alpha charlie bravo",
         4},
        {"10,000-character filter", L"echo", [](ListCtrl& l) { l.SetFilter(TString<wchar_t>(10000, L'x')); }, "", 4},
        {"clearing the filter shows all", L"alpha", [](ListCtrl& l) { l.SetFilter(L"zz"), l.SetFilter(L""); },
         "delta alpha charlie bravo echo", 1},
        {"descending from 1", L"alpha", [](ListCtrl& l) { l.Sort(1, false); }, "delta echo charlie bravo alpha", 4},
        {"ascending from 2", L"echo", [](ListCtrl& l) { l.Sort(2, true); }, "delta alpha bravo charlie echo", 4},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ListCtrl* list = Make();
        Rows rows({L"delta", L"alpha", L"charlie", L"bravo", L"echo"});
        list->SetDataSource(&rows);
        const unsigned int row = c.selected == std::wstring(L"alpha") ? 1 : 4;
        list->SetSelectedItem(ListCtrl::c_idBase + row);
        const unsigned int generation = list->GetFilterGeneration();
        c.op(*list);
        EXPECT_EQ(Shown(*list), c.shown) << "kept without a new layout";
        EXPECT_EQ(list->GetTotalHeight(), ShownHeight(*list));
        list->SetFilter(list->GetFilter()); // the same text again changes nothing
        list->ArrangeItems();
        EXPECT_EQ(Shown(*list), c.shown);
        EXPECT_LE(list->GetFilterGeneration() - generation, 2u);
        EXPECT_EQ(list->GetTotalHeight(), ShownHeight(*list));
        ASSERT_EQ(list->GetSelectedPosition(), c.position);
        EXPECT_TRUE(list->GetItems()[c.position]->IsSelected());
        EXPECT_EQ(list->GetItems()[c.position]->GetId(), int(ListCtrl::c_idBase + row));
        // Shown rows alternate from the odd colour whatever is hidden.
        bool odd = true;
        for (const auto* item : list->GetItems()) {
            if (!item->IsShown())
                continue;
            EXPECT_EQ(item->GetBackgroundColor().GetAsString(), (odd ? *wxRED : *wxBLUE).GetAsString());
            odd = !odd;
        }
        list->Destroy();
    }
}

// Two clicks on row 0, `gap` ms apart; the selection events the parent gets.
TEST_F(ListTest, ClicksSelectDoubleClicksAndMultiSelection)
{
    struct Case { const char* what; uint64_t gap; bool multi; std::vector<int> events; bool selectedAfter; };
    const Case cases[] = {
        {"299 ms is a double click", 299, false, {0}, true},
        {"300 ms selects again", 300, false, {0, 0}, true},
        {"multi-selection toggles", 300, true, {0, 0}, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        testsupport::FakeClock clock(10000);
        ListCtrl* list = Make();
        Rows rows({L"a", L"b"});
        list->SetDataSource(&rows);
        Pump();
        if (c.multi)
            list->beginMultiSelection();
        std::vector<int> events;
        m_frame->Bind(wxEventTypeTag<wxCommandEvent>(ListCtrl::EVT_ITEM_SELECTED),
                      [&events](wxCommandEvent& e) { events.push_back(e.GetInt()); });
        for (int click = 0; click < 2; ++click) {
            wxCommandEvent event(wxEVT_BUTTON, int(ListCtrl::c_idBase));
            event.SetEventObject(list->GetItems()[0]);
            list->OnItemClick(event);
            clock.Advance(c.gap);
        }
        Pump();
        EXPECT_EQ(events, c.events);
        EXPECT_EQ(std::make_pair(list->GetItems()[0]->IsSelected(), rows.getSelectedRowCount()),
                  std::make_pair(c.selectedAfter, c.selectedAfter ? 1u : 0u));
        m_frame->Unbind(wxEventTypeTag<wxCommandEvent>(ListCtrl::EVT_ITEM_SELECTED), [](wxCommandEvent&) {});
        list->Destroy();
    }
}

// Rows exactly as high as the list need no scroll control; one wheel step
// moves the rows 20 content pixels and the thumb 10 track pixels (how rows
// and thumbs paint is the control and scroll tests' part).
TEST_F(ListTest, ScrollControlOnlyWhenRowsOverflowAndTheWheelMovesRowsAndThumb)
{
    for (unsigned int count : {5u, 6u, 10u}) {
        SCOPED_TRACE(count);
        ListCtrl* list = Make();
        Rows rows(std::vector<std::wstring>(count, L"row"));
        list->SetDataSource(&rows);
        VScrollCtrl* scroll = list->GetScrollCtrl();
        ASSERT_TRUE(scroll && scroll->GetScrollBar());
        EXPECT_EQ(scroll->IsShown(), count > 5);
        EXPECT_EQ(list->GetItemWidth(), count > 5 ? 110u : 120u);
        wxMouseEvent wheel(wxEVT_MOUSEWHEEL);
        wheel.m_wheelRotation = -120;
        list->OnMouseWheel(wheel);
        if (count == 10) {
            EXPECT_EQ(list->GetScrollOffset(), 20);
            EXPECT_EQ(list->GetItems()[1]->GetPosition(), wxPoint(0, 0));
            const VScrollBar* bar = scroll->GetScrollBar();
            EXPECT_EQ(std::make_pair(bar->GetThumbPosition(), bar->GetThumbRect().height), std::make_pair(10.0, 50));
        }
        list->Destroy();
    }
}

TEST_F(ListTest, ItemSortFilterStringsAndIndicator)
{
    ListItemCtrl* item = Make<ListItemCtrl>(c_itemTemplate);
    item->SetControlLabel(L"Hello World");
    EXPECT_EQ(item->GetSortString(), L"hello world");
    struct Case { const wchar_t* filterString; const wchar_t* filter; bool match; };
    const Case cases[] = {{nullptr, L"lo w", true}, {nullptr, L"World", false},
                          {L"ABC", L"B", true}, {L"ABC", L"b", false}};
    for (const auto& c : cases) {
        if (c.filterString)
            item->SetFilterString(c.filterString);
        EXPECT_EQ(item->FilterMatch(c.filter), c.match) << c.filter;
    }
    // The skin has no "ModalIndicator" template.
    for (const auto& [indicator, shown] : {std::pair{1, true}, {3, true}, {0, false}, {3, false}, {2, false}}) {
        item->SetIndicator(indicator);
        EXPECT_EQ(item->HasIndicator(), shown) << indicator;
    }
    item->Destroy();
}

TEST_F(ListTest, CheckedItemShowsAndReportsItsState)
{
    auto* item = Make<CheckedListItemCtrl>(R"(<Control class="CheckedListItemCtrl" bounds="0,0,100,20">
        <Control class="StatesBoxCtrl" name="StatesBox" id="ID_CHECKBOX" bounds="2,2,16,16"><StateImage size="8,8"/></Control>
        <Control class="PanelCtrl" name="WorkingProgress" bounds="80,2,16,16"/></Control>)");
    ASSERT_TRUE(item && item->GetStatesBox() && item->GetWorkingProgress());
    std::vector<int> posted;
    m_frame->Bind(wxEventTypeTag<wxCommandEvent>(CheckedListItemCtrl::EVT_CHECKBOX_STATUS_CHANGED),
                  [&posted](wxCommandEvent& e) { posted.push_back(e.GetInt()); });
    struct Case { CheckedListItemCtrl::CheckState state; int box; bool working; std::vector<int> posted; };
    const Case cases[] = {{CheckedListItemCtrl::Unchecked, 1, false, {}},
                          {CheckedListItemCtrl::Checked, 0, false, {1}},
                          {CheckedListItemCtrl::Working, 2, true, {3}},
                          {CheckedListItemCtrl::Undefined, 1, false, {2}}};
    for (const auto& c : cases) {
        posted.clear();
        item->SetState(c.state);
        Pump();
        EXPECT_EQ(std::make_pair(item->GetStatesBox()->m_state, item->GetWorkingProgress()->IsShown()),
                  std::make_pair(c.box, c.working))
            << c.state;
        EXPECT_EQ(posted, c.posted) << c.state;
    }
    item->Destroy();
}

TEST_F(ListTest, ContainerToggleResizesTheRowAndRelaysTheList)
{
    ListCtrl* list = Make();
    auto* item = Make<ContainerListItemCtrl>(R"(<Control class="ContainerListItemCtrl" bounds="0,0,100,20">
        <Control class="ButtonCtrl" name="Header" bounds="0,0,100,20"/></Control>)");
    item->Reparent(list);
    list->AddItem(item);
    list->AddItem(L"below", int(list->GetFreeIndex()), ListItemCtrl::None);
    item->SetClientCtrl(Parse(R"(<Control class="PanelCtrl" bounds="0,0,100,30"/>)"));
    for (const auto& [height, below] : {std::pair{50, 50}, {20, 20}, {50, 50}}) {
        wxCommandEvent toggle(wxEVT_BUTTON, ID_TOGGLE);
        item->OnToggle(toggle);
        EXPECT_EQ(item->GetSize().y, height);
        EXPECT_EQ(list->GetItems()[1]->GetPosition().y, below) << "the row below moved";
        EXPECT_EQ(list->GetTotalHeight(), unsigned(height + 20));
    }
    list->Destroy();
}

// The defaults of data sources and delegates: selection bookkeeping, the row
// template, multi-selection, and the pending-changes report to the dashboard.
// (Row events reach lists through the listener list: its own tests and the
// row-event test above cover their delivery and copies.)
// Steps: 's' selects, 'd' deselects the digit that follows; 'c' clears.
TEST(IDataSource, SelectionKeepsOrderWithoutDuplicates)
{
    struct Case { const char* steps; std::vector<unsigned int> rows; };
    const Case cases[] = {{"s3s3", {3}}, {"s5s1s3", {5, 1, 3}}, {"s1d2", {1}}, {"s1s2d1s1", {2, 1}}, {"s1s2c", {}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.steps);
        UIKit::ListCtrlDataSource source(L"");
        for (const char* step = c.steps; *step; ++step) {
            if (*step == 'c') {
                source.doDeselectedAll();
                continue;
            }
            const unsigned int row = step[1] - '0';
            *step == 's' ? source.doSelectedIndex(row) : source.doDeselectedIndex(row);
            ++step;
        }
        EXPECT_EQ(source.GetSelectedRows(), c.rows);
        EXPECT_EQ(source.getSelectedRowCount(), c.rows.size());
    }
}

class RowTemplate : public descriptortest::FactoryFixture {};

TEST_F(RowTemplate, FoundByNameOrNull)
{
    const descriptortest::Document row(R"(<Control class="Row" name="row"/>)");
    UIKit::TemplateManager::Instance()->Add(row.Make<UIKit::BaseCtrlDescriptor>());
    testsupport::LogCapture log;
    EXPECT_FALSE(UIKit::ListCtrlDataSource(L"Row").GetItemTemplate().IsNull());
    EXPECT_TRUE(UIKit::ListCtrlDataSource(L"Missing").GetItemTemplate().IsNull());
    EXPECT_TRUE(log.Contains(L"Missing"));

    UIKit::TemplateManager::ReleaseInstance();
    EXPECT_TRUE(UIKit::ListCtrlDataSource(L"Row").GetItemTemplate().IsNull()) << "no registry, no template";
}

// Steps: 'b' begins, 'c' cancels, 'a' applies multi-selection.
TEST(ListCtrlDelegate, MultiSelection)
{
    const std::pair<const char*, bool> cases[] = {{"b", true}, {"ba", false}, {"bc", false}, {"cab", true}};
    for (const auto& [steps, multi] : cases) {
        UIKit::ListCtrlDelegate delegate;
        for (const char* step = steps; *step; ++step)
            *step == 'b' ? delegate.beginMultiSelection()
                         : *step == 'a' ? delegate.applyMultiSelection() : delegate.cancelMultiSelection();
        EXPECT_EQ(delegate.shouldDoMultiSelection(), multi) << steps;
    }
}

class RecordingDashboard : public frametest::TestDashboard {
public:
    void OnPendingChanges(const TString<wchar_t>& key, int32_t value) override
    {
        reports.push_back(std::to_wstring(value) + L":" + key);
    }
    std::vector<std::wstring> reports;
};

TEST(IDelegate, FlushAndRollbackReportPendingChangesToTheDashboard)
{
    UIKit::IDelegate delegate;
    delegate.m_pendingKey = L"profiles";
    delegate.m_pendingValue = 12;
    {
        testsupport::LogCapture log;
        delegate.doFlush();
        EXPECT_EQ(log.Size(), 1u) << "without a dashboard the report is logged, not lost silently";
    }
    auto* dashboard = new RecordingDashboard;
    UIKit::App::m_pDashboard = dashboard;
    delegate.doFlush();
    delegate.m_pendingValue = -1;
    delegate.doRollback();
    UIKit::App::m_pDashboard = nullptr;
    EXPECT_EQ(dashboard->reports, (std::vector<std::wstring>{L"12:profiles", L"-1:profiles"}));
    dashboard->Destroy();
}

} // namespace
} // namespace liststest

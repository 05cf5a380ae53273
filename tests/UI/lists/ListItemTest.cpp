// The row controls: sort and filter strings, indicators, the checked row's
// state, and an expanding row inside its list.
#include "ListTestSupport.h"

#include "controls/StatesBoxCtrl.h"
#include "factory/ControlIds.h"
#include "lists/CheckedListItemCtrl.h"
#include "lists/ContainerListItemCtrl.h"

using namespace UIKit;

namespace liststest {
namespace {

TEST_F(ListTest, ItemSortFilterStringsAndIndicator)
{
    ListItemCtrl* item = Make<ListItemCtrl>(c_itemTemplate);
    item->SetControlLabel(L"Hello World");
    EXPECT_EQ(item->GetSortString(), L"hello world");
    struct Case { const wchar_t* filterString; const wchar_t* filter; bool match; };
    const Case cases[] = {{nullptr, L"world", true}, {nullptr, L"lo w", true}, {nullptr, L"World", false},
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
    m_frame->Bind(wxEventTypeTag<wxCommandEvent>(CheckedListItemCtrl::EVT_CHECKBOX_STATUS_CHANGED), [&posted](wxCommandEvent& e) { posted.push_back(e.GetInt()); });
    struct Case { CheckedListItemCtrl::CheckState state; int box; bool working; std::vector<int> posted; };
    const Case cases[] = {{CheckedListItemCtrl::Unchecked, 1, false, {}}, {CheckedListItemCtrl::Checked, 0, false, {1}},
                          {CheckedListItemCtrl::Working, 2, true, {3}}, {CheckedListItemCtrl::Undefined, 1, false, {2}}};
    for (const auto& c : cases) {
        posted.clear();
        item->SetState(c.state);
        Pump();
        EXPECT_EQ(item->GetStatesBox()->m_state, c.box) << c.state;
        EXPECT_EQ(item->GetWorkingProgress()->IsShown(), c.working) << c.state;
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

} // namespace
} // namespace liststest

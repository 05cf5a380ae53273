#include "ControlTestSupport.h"

#include "controls/ButtonCtrl.h"
#include "controls/StandardControls.h"
#include "controls/ToolBar.h"
#include "factory/ControlIds.h"
#include "factory/CtrlFactory.h"

#include <wx/app.h>

using namespace UIKit;

namespace {

class ToolbarTest : public controltest::SkinnedTest {
protected:
    void SetUp() override
    {
        SkinnedTest::SetUp();
        CtrlFactory::ReleaseInstance();
        CtrlFactory::CreateInstance();
        RegisterStandardControls(*CtrlFactory::Instance());
        CtrlFactory::Instance()->SetResources(&m_resources);
    }
    void TearDown() override
    {
        SkinnedTest::TearDown();
        CtrlFactory::ReleaseInstance();
    }
    Toolkit::smart_ptr<BaseCtrlDescriptor> Parse(const std::string& xml)
    {
        m_documents.push_back(std::make_unique<descriptortest::Document>(xml, &m_resources));
        return CtrlFactory::Instance()->CreateDescriptor(m_documents.back()->Root());
    }
    // A toolbar built by the factory from items written "40" (a button of
    // that width, ids ID_HOME, ID_SETTINGS, ID_PREV_STATE) or "S" (a spacer),
    // laid out from the queue.
    ToolBar* Build(int width, const std::string& padding, const std::vector<std::string>& items)
    {
        std::string xml = "<Control class=\"ToolbarCtrl\" bounds=\"0,0," + std::to_string(width) + ",30\" padding=\"" +
                          padding + "\">";
        const char* const ids[] = {"ID_HOME", "ID_SETTINGS", "ID_PREV_STATE"};
        int id = 0;
        for (const auto& item : items)
            xml += item == "S" ? R"(<Control class="ButtonCtrl" id="ID_SPACER" bounds="0,5,1,20"/>)"
                               : "<Control class=\"ButtonCtrl\" id=\"" + std::string(ids[id++]) + "\" bounds=\"0,5," +
                                     item + ",20\"/>";
        auto* bar = dynamic_cast<ToolBar*>(CtrlFactory::Instance()->CreateControl(Parse(xml + "</Control>"), m_frame, -1));
        wxTheApp->ProcessPendingEvents();
        return bar;
    }
    static std::vector<wxRect> Layout(const ToolBar& bar)
    {
        std::vector<wxRect> rects;
        for (const ButtonCtrl* item : bar.GetItems())
            rects.push_back(item->GetRect());
        return rects;
    }
};

TEST_F(ToolbarTest, SpacersShareTheFreeWidth)
{
    struct Case {
        const char* what;
        int width;
        std::string padding;
        std::vector<std::string> items;
        int hidden; // id of a button hidden with ShowItem, or 0
        std::vector<int> xs, widths;
    };
    const Case cases[] = {
        {"two spacers", 300, "10,0,10,0", {"40", "S", "40", "S", "40"}, 0, {10, 50, 130, 170, 250}, {40, 80, 40, 80, 40}},
        {"hidden button keeps its place", 300, "10,0,10,0", {"40", "S", "40", "S", "40"}, ID_SETTINGS,
         {10, 50, 130, 150, 250}, {40, 100, 40, 100, 40}},
        {"remainder unused", 100, "0,0,0,0", {"S", "S", "S"}, 0, {0, 33, 66}, {33, 33, 33}},
        {"overflow leaves spacers empty", 50, "0,0,0,0", {"40", "S", "40"}, 0, {0, 40, 40}, {40, 0, 40}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ToolBar* bar = Build(c.width, c.padding, c.items);
        ASSERT_TRUE(bar);
        ASSERT_EQ(bar->GetItems().size(), c.items.size());
        if (c.hidden) {
            EXPECT_TRUE(bar->ShowItem(c.hidden, false));
        }
        const auto rects = Layout(*bar);
        for (size_t i = 0; i < rects.size(); ++i) {
            EXPECT_EQ(rects[i].x, c.xs[i]) << i;
            EXPECT_EQ(rects[i].width, c.widths[i]) << i;
            EXPECT_EQ(rects[i].y, 5) << "arranging again does not move items down";
        }
        bar->Destroy();
    }
}

TEST_F(ToolbarTest, ItemOperationsByIdAndPushedButton)
{
    ToolBar* bar = Build(300, "0,0,0,0", {"40", "40"});
    EXPECT_FALSE(bar->ShowItem(99, false));
    EXPECT_FALSE(bar->EnableItem(99, false));
    EXPECT_TRUE(bar->EnableItem(ID_SETTINGS, false));
    EXPECT_FALSE(bar->GetItems()[1]->IsEnabled());

    // Inserted before an unknown id the button goes last, before a known one in front of it.
    EXPECT_TRUE(bar->InsertItem(Parse(R"(<Control class="ButtonCtrl" id="ID_NEXT_STATE" bounds="0,0,40,20"/>)"), 99));
    EXPECT_TRUE(bar->InsertItem(Parse(R"(<Control class="ButtonCtrl" id="ID_PREV2_STATE" bounds="0,0,40,20"/>)"), ID_SETTINGS));
    EXPECT_FALSE(bar->AddItem(Parse(R"(<Control class="PanelCtrl" id="ID_PREV_STATE"/>)"))) << "only buttons join";
    std::vector<int> ids;
    for (const ButtonCtrl* item : bar->GetItems())
        ids.push_back(item->GetId());
    EXPECT_EQ(ids, (std::vector<int>{ID_HOME, ID_PREV2_STATE, ID_SETTINGS, ID_NEXT_STATE}));

    std::vector<std::string> told;
    for (ButtonCtrl* item : bar->GetItems()) {
        const int id = item->GetId();
        item->Bind(wxEventTypeTag<wxCommandEvent>(ToolBar::EVT_PUSH_BUTTON), [&told, id](wxCommandEvent&) { told.push_back("push " + std::to_string(id)); });
        item->Bind(wxEventTypeTag<wxCommandEvent>(ToolBar::EVT_RAISE_BUTTON), [&told, id](wxCommandEvent&) { told.push_back("raise " + std::to_string(id)); });
    }
    bar->PushButton(ID_HOME, true);
    bar->PushButton(ID_SETTINGS, true);
    bar->PushButton(ID_SETTINGS, true);
    bar->PushButton(ID_NEXT_STATE, false);
    wxTheApp->ProcessPendingEvents();
    EXPECT_EQ(told, (std::vector<std::string>{"push 8003", "raise 8003", "push 8004", "push 8007"}));

    bar->RemoveAllItems();
    EXPECT_TRUE(bar->GetItems().empty());
    EXPECT_EQ(wxWindow::FindWindowById(ID_HOME, bar), nullptr);
}

} // namespace

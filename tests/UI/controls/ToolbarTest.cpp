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
    void TearDown() override { SkinnedTest::TearDown(), CtrlFactory::ReleaseInstance(); }
    Toolkit::smart_ptr<BaseCtrlDescriptor> Parse(const std::string& xml)
    {
        m_documents.push_back(std::make_unique<descriptortest::Document>(xml, &m_resources));
        return CtrlFactory::Instance()->CreateDescriptor(m_documents.back()->Root());
    }
    static std::string Button(const char* id, int width = 40, const char* image = "")
    {
        return std::string("<Control class=\"ButtonCtrl\" id=\"") + id + "\" bounds=\"0,5," + std::to_string(width) +
               ",20\"><Enabled>" + image + "</Enabled></Control>";
    }
    // Built by the factory from "B" (40-pixel buttons ID_HOME, ID_SETTINGS,
    // ID_PREV_STATE in turn) and "S" (spacers), then laid out from the queue.
    ToolBar* Build(int width, int side, int top, const std::string& items)
    {
        const char* const ids[] = {"ID_HOME", "ID_SETTINGS", "ID_PREV_STATE"};
        std::string xml = "<Control class=\"ToolbarCtrl\" bounds=\"0,0," + std::to_string(width) + ",30\" padding=\"" +
                          std::to_string(side) + "," + std::to_string(top) + "," + std::to_string(side) + ",0\">";
        int button = 0;
        for (char item : items)
            xml += item == 'S' ? Button("ID_SPACER", 1, "green.png") : Button(ids[button++], 40, "red.png");
        auto* bar = dynamic_cast<ToolBar*>(CtrlFactory::Instance()->CreateControl(Parse(xml + "</Control>"), m_frame, -1));
        wxTheApp->ProcessPendingEvents();
        return bar;
    }
};

TEST_F(ToolbarTest, SpacersShareTheFreeWidth)
{
    // `hidden`: id of a button hidden with ShowItem, or 0.
    struct Case { const char* what; int width, side, top; std::string items; int hidden; std::vector<int> xs; int spacer; };
    const Case cases[] = {
        {"two spacers", 300, 10, 3, "BSBSB", 0, {10, 50, 130, 170, 250}, 80},
        {"hidden button keeps its place", 300, 10, 0, "BSBSB", ID_SETTINGS, {10, 50, 130, 150, 250}, 100},
        {"remainder unused", 100, 0, 0, "SSS", 0, {0, 33, 66}, 33},
        {"overflow leaves spacers empty", 50, 0, 0, "BSB", 0, {0, 40, 40}, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ToolBar* bar = Build(c.width, c.side, c.top, c.items);
        ASSERT_TRUE(bar && bar->GetItems().size() == c.items.size());
        EXPECT_EQ(bar->ShowItem(c.hidden, false), c.hidden != 0);
        // Laid out three times by now: the skin's y plus the top padding, without drifting.
        for (size_t i = 0; i < c.items.size(); ++i)
            EXPECT_EQ(bar->GetItems()[i]->GetRect(), wxRect(c.xs[i], 5 + c.top, c.items[i] == 'S' ? c.spacer : 40, 20)) << i;
        bar->Destroy();
    }
}

// The items as painted side by side: the widths of the green (spacer) runs
// along one row of pixels.
TEST_F(ToolbarTest, SpacersPaintTheirShare)
{
    for (const auto& [width, spacers] : {std::pair{300, std::vector<int>{80, 80}}, {180, std::vector<int>{20, 20}}}) {
        ToolBar* bar = Build(width, 10, 0, "BSBSB");
        const wxImage image = controltest::Render(bar->GetSize(), [bar](wxDC& dc) {
            for (ButtonCtrl* item : bar->GetItems()) {
                dc.SetDeviceOrigin(item->GetPosition().x, item->GetPosition().y);
                item->DrawBitmap(dc, wxRect(item->GetSize()));
            }
        });
        std::vector<int> runs;
        for (int x = 0, run = 0; x <= width; ++x) {
            const bool green = x < width && controltest::SwatchAt(image, x, 15) == "green.png";
            run = green ? run + 1 : (run ? (runs.push_back(run), 0) : 0);
        }
        EXPECT_EQ(runs, spacers) << width;
        bar->Destroy();
    }
}

TEST_F(ToolbarTest, ItemOperationsByIdAndPushedButton)
{
    ToolBar* bar = Build(300, 0, 0, "BB");
    EXPECT_FALSE(bar->EnableItem(99, false));
    EXPECT_TRUE(bar->EnableItem(ID_SETTINGS, false));
    EXPECT_FALSE(bar->GetItems()[1]->IsEnabled());
    // Inserted before an unknown id the button goes last, before a known one in front of it.
    EXPECT_TRUE(bar->InsertItem(Parse(Button("ID_NEXT_STATE")), 99));
    EXPECT_TRUE(bar->InsertItem(Parse(Button("ID_PREV2_STATE")), ID_SETTINGS));
    EXPECT_FALSE(bar->AddItem(Parse(R"(<Control class="PanelCtrl" id="ID_PREV_STATE"/>)"))) << "only buttons join";
    std::vector<int> ids;
    std::vector<std::string> told;
    for (ButtonCtrl* item : bar->GetItems()) {
        const int id = item->GetId();
        ids.push_back(id);
        item->Bind(wxEventTypeTag<wxCommandEvent>(ToolBar::EVT_PUSH_BUTTON), [&told, id](wxCommandEvent&) { told.push_back("push " + std::to_string(id)); });
        item->Bind(wxEventTypeTag<wxCommandEvent>(ToolBar::EVT_RAISE_BUTTON), [&told, id](wxCommandEvent&) { told.push_back("raise " + std::to_string(id)); });
    }
    EXPECT_EQ(ids, (std::vector<int>{ID_HOME, ID_PREV2_STATE, ID_SETTINGS, ID_NEXT_STATE}));
    for (auto [id, raise] : {std::pair{ID_HOME, true}, {ID_SETTINGS, true}, {ID_SETTINGS, true}, {ID_NEXT_STATE, false}})
        bar->PushButton(id, raise);
    wxTheApp->ProcessPendingEvents();
    EXPECT_EQ(told, (std::vector<std::string>{"push 8003", "raise 8003", "push 8004", "push 8007"}));
    bar->RemoveAllItems();
    EXPECT_TRUE(bar->GetItems().empty() && !wxWindow::FindWindowById(ID_HOME, bar));
}

} // namespace

// Where the states box puts its state image and its label, and which state
// image it paints.
#include "ControlTestSupport.h"

#include "controls/StatesBoxCtrl.h"

using namespace UIKit;

namespace {

class StatesBoxTest : public controltest::SkinnedTest {};

TEST_F(StatesBoxTest, StateImageAndLabelPlacement)
{
    struct Case { const char* what; wxSize size; std::string image; std::string padding; wxPoint at; wxRect label; };
    const Case cases[] = {
        {"left", {200, 30}, R"(size="16,16" margin="4,0,4,0")", "", {4, 7}, {24, 0, 200, 30}},
        {"right", {200, 30}, R"(size="16,16" margin="4,0,4,0" placement="MiddleRight")", "", {176, 7}, {0, 0, 200, 30}},
        {"odd heights truncate", {200, 31}, R"(size="16,15" margin="4,0,4,0")", "", {4, 8}, {24, 0, 200, 31}},
        {"top margin moves down, bottom does not", {200, 30}, R"(size="16,16" margin="4,3,4,9")", "", {4, 10}, {24, 0, 200, 30}},
        {"padding", {200, 30}, R"(size="16,16" margin="4,0,4,0")", R"( padding="10,5,10,5")", {4, 7}, {34, 5, 180, 20}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const std::string bounds = "0,0," + std::to_string(c.size.x) + "," + std::to_string(c.size.y);
        auto* box = new StatesBoxCtrl(m_frame, wxID_ANY, wxRect(c.size));
        ASSERT_TRUE(Load(box, Describe<StatesBoxCtrlDescriptor>("<Control bounds=\"" + bounds + "\"" + c.padding + "><StateImage " +
                                                               c.image + "/><Label>Hi</Label></Control>")));
        EXPECT_EQ(box->m_state, StatesBoxCtrl::Inactive);
        EXPECT_EQ(box->GetStateImagePosition(), c.at);
        EXPECT_EQ(box->GetFittedLabelArea(), c.label);
        box->Destroy();
    }
    auto* unloaded = new StatesBoxCtrl(m_frame, wxID_ANY, wxRect(0, 0, 20, 20));
    EXPECT_FALSE(unloaded->LoadDescriptor({}));
    EXPECT_EQ(unloaded->m_state, StatesBoxCtrl::Unknown);
    unloaded->Destroy();
}

// The image painted at the state image's place for each state; the
// unknown image is missing in the second skin.
TEST_F(StatesBoxTest, PaintsTheImageOfItsState)
{
    for (const bool withUnknown : {true, false}) {
        auto* box = new StatesBoxCtrl(m_frame, wxID_ANY, wxRect(0, 0, 100, 20));
        Load(box, Describe<StatesBoxCtrlDescriptor>(std::string(R"(<Control bounds="0,0,100,20"><Enabled>grey.png</Enabled>
            <StateImage size="8,8" margin="2,0,0,0"><ImageActive>green.png</ImageActive><ImageInactive>red.png</ImageInactive>)") +
                                                    (withUnknown ? "<ImageUnknown>blue.png</ImageUnknown>" : "") + "</StateImage></Control>"));
        for (const auto& [state, swatch] : {std::pair{0, "green.png"}, {1, "red.png"}, {2, "blue.png"}, {7, "blue.png"}}) {
            box->m_state = state;
            const wxImage image = controltest::Render(wxSize(100, 20), [box](wxDC& dc) { box->DrawCustom(dc); });
            EXPECT_EQ(controltest::SwatchAt(image, 4, 10), withUnknown || state < 2 ? swatch : "grey.png") << state;
            EXPECT_EQ(controltest::SwatchAt(image, 50, 10), "grey.png") << "the background is drawn";
        }
        box->Destroy();
    }
}

} // namespace

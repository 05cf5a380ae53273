// The navigation's glue to the rest of the library: a screen state asks the
// dashboard for its screen only when its sequence is on show, with the
// slide the navigation asked for, and its transition hands out the same
// state every time; an event row whose transition nobody registered is
// reported once, against the item file and line it came from.
#include "ErrorCapture.h"
#include "TestSupport.h"
#include "UI/frames/TestDashboard.h"
#include "navigation/EventManager.h"
#include "navigation/PreviousSequenceParameter.h"
#include "navigation/ScreenTransition.h"
#include "navigation/SequenceManager.h"
#include "navigation/TransitionManager.h"
#include "xml/XMLLoader.h"
#include "xml/XMLNode.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class RecordingDashboard : public frametest::TestDashboard {
public:
    bool ShowScreen(const TString<wchar_t>& name, UIKit::Animation animation, int, int) override
    {
        shown.push_back(std::string(name.begin(), name.end()) + " " + std::to_string(int(animation)));
        return answer;
    }
    std::vector<std::string> shown;
    bool answer = true;
};

TEST(ScreenStateTest, ShowsItsScreenOnlyWhenVisibleWithTheAskedSlide)
{
    const Toolkit::smart_ptr<UIKit::IStateParameter> none;
    const Toolkit::smart_ptr<UIKit::IStateParameter> back(new UIKit::PreviousSequenceParameter(UIKit::AnimationSlideRight));
    // shown: the screen the dashboard was asked for and the slide, or empty
    struct Case { const char* what; bool visible; Toolkit::smart_ptr<UIKit::IStateParameter> parameter; bool answer; std::string shown; };
    const Case cases[] = {
        {"visible", true, none, true, "HomeScreen " + std::to_string(UIKit::AnimationSlideLeft)},
        {"hidden sequence", false, none, true, ""},
        {"back from another sequence", true, back, true, "HomeScreen " + std::to_string(UIKit::AnimationSlideRight)},
        {"dashboard cannot show it", true, none, false, "HomeScreen " + std::to_string(UIKit::AnimationSlideLeft)},
    };
    for (const auto& c : cases) {
        auto* dashboard = new RecordingDashboard();
        dashboard->answer = c.answer;
        UIKit::IDashboard::s_pCurrent = dashboard;
        UIKit::ScreenState state(L"Home", L"HomeMain", L"HomeScreen", UIKit::AnimationSlideLeft);
        EXPECT_EQ(state.Activate(c.visible, c.parameter), c.answer) << c.what;
        EXPECT_EQ(dashboard->shown, c.shown.empty() ? std::vector<std::string>{} : std::vector<std::string>{c.shown}) << c.what;
        UIKit::IDashboard::s_pCurrent = nullptr;
        dashboard->Destroy();
    }
    UIKit::ScreenState orphan(L"Home", L"HomeMain", L"HomeScreen");
    EXPECT_FALSE(orphan.Activate(true, none)) << "no dashboard";
}

TEST(ScreenStateTest, TransitionHandsOutItsOneState)
{
    auto transition = UIKit::ScreenTransition::Make(L"Usage", L"UsageMain", L"UsageScreen");
    auto first = transition->DoTransition();
    ASSERT_FALSE(first.IsNull());
    EXPECT_EQ(first.get(), transition->DoTransition().get());
    EXPECT_EQ(first.DynamicCast<UIKit::ScreenState>()->GetScreenName(), L"UsageScreen");
}

TEST(EventRowErrorTest, UnknownTransitionIsReportedAgainstItsFileAndLine)
{
    UIKit::EventManager::CreateInstance();
    UIKit::TransitionManager::CreateInstance();
    UIKit::SequenceManager::CreateInstance();
    testsupport::TempDir dir;
    const auto path = dir.Write("items.xml", "<Plugin>\n" "  <Events sequence=\"RowErrors\">\n"
                                             "    <Event state=\"S\" id=\"ID_SKIP\" sequence=\"Elsewhere\"\n"
                                             "           transition=\"TNowhere\"/>\n" "  </Events>\n" "</Plugin>\n");
    UIKit::XMLLoader loader;
    ASSERT_TRUE(loader.LoadFromFile(path.string()));
    std::vector<Toolkit::smart_ptr<UIKit::XMLNode>> events;
    UIKit::XMLLoader(loader.GetRootNode()).GetNodes(events, "Events");
    ASSERT_EQ(events.size(), 1u);
    UIKit::EventManager::Instance()->Load(events[0]);

    testsupport::ErrorCapture errors;
    const auto sequences = UIKit::SequenceManager::Instance();
    const auto before = sequences->GetCurrentSequence();
    EXPECT_FALSE(sequences->DoEvent(L"RowErrors", L"S", 8022, {}));
    ASSERT_EQ(errors.Lines().size(), 1u);
    EXPECT_NE(errors.Lines()[0].find("items.xml:3: Transition [TNowhere] not found!"), std::string::npos) << errors.Lines()[0];
    EXPECT_EQ(sequences->GetCurrentSequence(), before);
    UIKit::SequenceManager::ReleaseInstance();
    UIKit::TransitionManager::ReleaseInstance();
    UIKit::EventManager::ReleaseInstance();
}

} // namespace

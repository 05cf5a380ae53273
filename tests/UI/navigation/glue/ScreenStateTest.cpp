// A screen state asks the dashboard for its screen only when its sequence
// is on show, with the slide the navigation asked for, and its transition
// hands out the same state every time.
#include "UI/frames/TestDashboard.h"
#include "navigation/PreviousSequenceParameter.h"
#include "navigation/ScreenTransition.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

struct Shown {
    TString<wchar_t> name;
    UIKit::Animation animation;
};

class RecordingDashboard : public frametest::TestDashboard {
public:
    bool ShowScreen(const TString<wchar_t>& name, UIKit::Animation animation, int, int) override
    {
        shown.push_back({name, animation});
        return answer;
    }
    std::vector<Shown> shown;
    bool answer = true;
};

TEST(ScreenStateTest, ShowsItsScreenOnlyWhenVisibleWithTheAskedSlide)
{
    using UIKit::Animation;
    const Toolkit::smart_ptr<UIKit::IStateParameter> none;
    const Toolkit::smart_ptr<UIKit::IStateParameter> back(new UIKit::PreviousSequenceParameter(UIKit::AnimationSlideRight));
    struct Case {
        const char* what;
        bool visible;
        Toolkit::smart_ptr<UIKit::IStateParameter> parameter;
        bool dashboardAnswer;
        bool expectedResult;
        int expectedShows;
        Animation expectedAnimation;
    } cases[] = {
        {"visible", true, none, true, true, 1, UIKit::AnimationSlideLeft},
        {"hidden sequence", false, none, true, true, 0, UIKit::AnimationNone},
        {"back from another sequence", true, back, true, true, 1, UIKit::AnimationSlideRight},
        {"dashboard cannot show it", true, none, false, false, 1, UIKit::AnimationSlideLeft},
    };
    for (const auto& c : cases) {
        auto* dashboard = new RecordingDashboard();
        dashboard->answer = c.dashboardAnswer;
        UIKit::IDashboard::s_pCurrent = dashboard;
        UIKit::ScreenState state(L"Home", L"HomeMain", L"HomeScreen", UIKit::AnimationSlideLeft);
        EXPECT_EQ(state.Activate(c.visible, c.parameter), c.expectedResult) << c.what;
        ASSERT_EQ(dashboard->shown.size(), size_t(c.expectedShows)) << c.what;
        if (c.expectedShows) {
            EXPECT_EQ(dashboard->shown[0].name, L"HomeScreen") << c.what;
            EXPECT_EQ(dashboard->shown[0].animation, c.expectedAnimation) << c.what;
        }
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

} // namespace

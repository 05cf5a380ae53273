#include "ControlTestSupport.h"

#include "controls/AnimatedCtrl.h"
#include "controls/ProgressBarCtrl.h"
#include "descriptors/AnimatedCtrlDescriptor.h"
#include "descriptors/ProgressBarCtrlDescriptor.h"

using namespace UIKit;
using controltest::Render;
using controltest::SwatchAt;

namespace {

// Four frames 10 x 8, red, green, blue and yellow from left to right.
wxImage Strip(int width = 40)
{
    wxImage strip(width, 8);
    for (int frame = 0; frame * 10 < width; ++frame) {
        const wxColour& c = controltest::c_swatches[frame % 4].colour;
        strip.SetRGB(wxRect(frame * 10, 0, std::min(10, width - frame * 10), 8), c.Red(), c.Green(), c.Blue());
    }
    return strip;
}

const char* const c_frameColours[] = {"red.png", "green.png", "blue.png", "yellow.png"};

class AnimatedProgressTest : public controltest::SkinnedTest {
protected:
    AnimatedCtrl* Animation(const std::string& inner)
    {
        auto* animation = new AnimatedCtrl(m_frame, wxID_ANY, wxRect(0, 0, 10, 8));
        Load(animation, Describe<AnimatedCtrlDescriptor>(
                            R"(<Control class="AnimatedCtrl" bounds="0,0,10,8"><Images>strip.png</Images>)" + inner +
                            "</Control>"));
        return animation;
    }
    ProgressBarCtrl* Bar(const std::string& inner, const wxSize& size)
    {
        auto* bar = new ProgressBarCtrl(m_frame, wxID_ANY, wxRect(wxPoint(0, 0), size));
        Load(bar, Describe<ProgressBarCtrlDescriptor>(R"(<Control class="ProgressBarCtrl" bounds="0,0,)" +
                                                      std::to_string(size.x) + "," + std::to_string(size.y) +
                                                      "\"" + inner + "</Control>"));
        return bar;
    }
    template <class C>
    static std::string Shown(C* control)
    {
        return SwatchAt(Render(control->GetSize(), [&](wxDC& dc) { control->DrawCustom(dc); }), 5, 4);
    }
    void SetUp() override
    {
        SkinnedTest::SetUp();
        m_resources.images[L"strip.png"] = Strip();
        m_resources.images[L"ragged.png"] = Strip(35);
    }
};

TEST_F(AnimatedProgressTest, AnimationShowsTheFrameOfEachTickAndStopsOnTheLastUnlessItRepeats)
{
    struct Case {
        const char* repeat;
        int ticks;
        unsigned int frame;
        bool running;
    };
    const Case cases[] = {{"no", 2, 2, true}, {"no", 3, 3, true}, {"no", 4, 3, false}, {"yes", 4, 0, true}};
    for (const auto& c : cases) {
        AnimatedCtrl* animation = Animation(std::string("<FrameDelay>50</FrameDelay><Repeat>") + c.repeat + "</Repeat>");
        animation->Start(0);
        for (int i = 0; i < c.ticks; ++i)
            animation->Tick();
        EXPECT_EQ(animation->GetFrame(), c.frame) << c.repeat << " after " << c.ticks;
        EXPECT_EQ(animation->IsRunning(), c.running) << c.repeat << " after " << c.ticks;
        EXPECT_EQ(Shown(animation), c_frameColours[c.frame]) << c.repeat << " after " << c.ticks;
        animation->Destroy();
    }
}

TEST_F(AnimatedProgressTest, BadStripsAreReportedAndNeverDivideByZero)
{
    struct Case {
        const char* xml;
        unsigned int frames;
        size_t reports;
    };
    const Case cases[] = {
        {R"(<Control bounds="0,0,10,8"><Images>strip.png</Images></Control>)", 4, 0},
        {R"(<Control bounds="0,0,10,8"><Images>ragged.png</Images></Control>)", 3, 1},
        {R"(<Control bounds="0,0,0,8"><Images>strip.png</Images></Control>)", 0, 1},
        {R"(<Control bounds="0,0,10,8"></Control>)", 0, 0},
    };
    for (const auto& c : cases) {
        descriptortest::ErrorCapture errors;
        auto descriptor = Describe<AnimatedCtrlDescriptor>(c.xml);
        EXPECT_EQ(descriptor->GetFrameCount(), c.frames) << c.xml;
        EXPECT_EQ(errors.Lines().size(), c.reports) << c.xml;
        auto* animation = new AnimatedCtrl(m_frame, wxID_ANY, descriptor->GetBounds());
        Load(animation, descriptor);
        animation->Tick();
        animation->Tick();
        Render(wxSize(10, 8), [&](wxDC& dc) { animation->DrawCustom(dc); });
        animation->Destroy();
    }
}

TEST_F(AnimatedProgressTest, BarFillsValueOverMaximumOfTheInnerWidth)
{
    // Range 100 to 300 over an inner width of 90: the bar treats the range
    // as starting at 0, so the minimum still shows a third.
    struct Case {
        long long value;
        int width;
    };
    const Case cases[] = {{100, 30}, {200, 60}, {300, 90}, {-5, 30}, {1000, 90}};
    for (const auto& c : cases) {
        ProgressBarCtrl* bar = Bar(R"( padding="5,2,5,2"><BackgroundImage>grey.png</BackgroundImage>)"
                                   "<ProgressImage>green.png</ProgressImage>",
                                   wxSize(100, 12));
        bar->SetValues(100, c.value, 300);
        EXPECT_EQ(bar->GetBarWidth(), c.width) << c.value;
        const wxImage shown = Render(bar->GetSize(), [&](wxDC& dc) { bar->DrawCustom(dc); });
        EXPECT_EQ(SwatchAt(shown, 5 + c.width - 1, 6), "green.png") << c.value;
        EXPECT_EQ(SwatchAt(shown, 5 + c.width, 6), "grey.png") << c.value;
        EXPECT_EQ(SwatchAt(shown, 2, 1), "grey.png") << "the padding shows the background";
        bar->Destroy();
    }
}

TEST_F(AnimatedProgressTest, BarRangeAndValueAreKeptConsistent)
{
    ProgressBarCtrl* bar = Bar("><BackgroundImage>grey.png</BackgroundImage><ProgressImage>green.png</ProgressImage>",
                               wxSize(100, 8));
    struct Step {
        long long minimum, value, maximum;
        long long wantMinimum, wantValue, wantMaximum;
        int width;
    };
    const Step steps[] = {
        {100, 50, 0, 0, 50, 100, 50},   // reversed bounds are swapped
        {0, 0, 200, 0, 0, 200, 0},      // no bar at 0
        {0, 50, 200, 0, 50, 200, 25},
        {0, 500, 200, 0, 200, 200, 100}, // clamped to the maximum
        {LLONG_MIN, LLONG_MAX, LLONG_MAX, LLONG_MIN, LLONG_MAX, LLONG_MAX, 100},
        {0, LLONG_MAX / 2, LLONG_MAX, 0, LLONG_MAX / 2, LLONG_MAX, 49},
    };
    for (const auto& s : steps) {
        bar->SetValues(s.minimum, s.value, s.maximum);
        EXPECT_EQ(std::vector<long long>({bar->GetMinimum(), bar->GetValue(), bar->GetMaximum(), bar->GetBarWidth()}),
                  std::vector<long long>({s.wantMinimum, s.wantValue, s.wantMaximum, s.width}));
    }
    bar->SetRange(300, 100);
    EXPECT_EQ(bar->GetMinimum(), 100);
    EXPECT_EQ(bar->GetValue(), 300) << "the value follows the new range";
}

TEST_F(AnimatedProgressTest, FrameModeShowsTheFrameOfTheValue)
{
    struct Case {
        long long minimum, value, maximum;
        unsigned int frame;
    };
    const Case cases[] = {{0, 29, 90, 0}, {0, 30, 90, 1}, {0, 200, 90, 3}, {5, 5, 5, 0}, {0, LLONG_MAX, LLONG_MAX, 3}};
    for (const auto& c : cases) {
        ProgressBarCtrl* bar = Bar("><AnimatedImages>strip.png</AnimatedImages>", wxSize(10, 8));
        bar->SetValues(c.minimum, c.value, c.maximum);
        EXPECT_EQ(bar->GetFrame(), c.frame) << c.value << " of " << c.minimum << ".." << c.maximum;
        EXPECT_EQ(Shown(bar), c_frameColours[c.frame]) << c.value;
        bar->Destroy();
    }
}

} // namespace

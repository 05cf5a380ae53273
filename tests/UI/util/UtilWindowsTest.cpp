#include "TestSupport.h"
#include "controls/PanelCtrl.h"
#include "util/Util.h"

#include <gtest/gtest.h>

#include <wx/frame.h>

#include <vector>

using UIKit::PanelCtrl;
using UIKit::Util;

namespace {

class UtilWindowsTest : public testing::Test {
protected:
    void SetUp() override { m_frame = new wxFrame(nullptr, wxID_ANY, "util"); }
    void TearDown() override { delete m_frame; }
    PanelCtrl* Panel(wxWindow* parent, int id, const wxString& name)
    {
        auto* panel = new PanelCtrl(parent, id, wxRect(0, 0, 20, 20));
        panel->SetName(name);
        return panel;
    }
    wxFrame* m_frame = nullptr;
};

TEST_F(UtilWindowsTest, ControlsAreFoundByIdOrByNameDepthFirst)
{
    // frame
    //   outer (100)          plain wxWindow "plain" (102)
    //     target (101)         deep (103)
    //       leaf (104)
    //   target (105)
    PanelCtrl* outer = Panel(m_frame, 100, "outer");
    PanelCtrl* target = Panel(outer, 101, "target");
    PanelCtrl* leaf = Panel(target, 104, "leaf");
    PanelCtrl* later = Panel(m_frame, 105, "target");
    auto* plain = new wxWindow(m_frame, 102, wxDefaultPosition, wxDefaultSize, 0, "plain");
    PanelCtrl* deep = Panel(plain, 103, "deep");

    EXPECT_EQ(Util::RecursiveFindControl(m_frame, L"target"), target) << "depth first: the nested one comes first";
    EXPECT_EQ(Util::RecursiveFindControl(m_frame, L"deep"), deep) << "non-control windows are searched through";
    EXPECT_EQ(Util::FindControl<PanelCtrl>(m_frame, L"target", false), later) << "direct children only";
    EXPECT_EQ(Util::FindControl(m_frame, 101), target);
    EXPECT_EQ(Util::FindControl(m_frame, 102), nullptr) << "a window that is not a control";

    // Show, with and without the children.
    EXPECT_TRUE(Util::ShowWindow(m_frame, 101, false, false));
    EXPECT_TRUE(!target->IsShown() && leaf->IsShown());
    EXPECT_TRUE(Util::ShowWindow(m_frame, L"outer", false, true));
    EXPECT_TRUE(!outer->IsShown() && !target->IsShown() && leaf->IsShown()) << "direct children follow";
    EXPECT_FALSE(Util::ShowWindow(m_frame, 102, false, false));
    EXPECT_TRUE(plain->IsShown()) << "the plain window is left alone";

    // Enable gives the control's answer: false when nothing changes.
    EXPECT_FALSE(Util::EnableWindow(m_frame, 105, true));
    EXPECT_TRUE(Util::EnableWindow(m_frame, L"deep", false) && !deep->IsEnabled());
    EXPECT_FALSE(Util::EnableWindow(m_frame, 102, false) || !plain->IsEnabled());

    TString<wchar_t> label;
    EXPECT_TRUE(Util::SetWindowLabel(m_frame, 104, L"by id") && Util::GetWindowLabel(m_frame, L"leaf", label));
    EXPECT_EQ(label, L"by id");
    EXPECT_FALSE(Util::GetWindowLabel(m_frame, 102, label) || Util::SetWindowLabel(m_frame, L"plain", L"x"));

    struct Case { const wxWindow* window; const wxWindow* candidate; bool expected; };
    const Case cases[] = {
        {m_frame, m_frame, true}, {outer, leaf, true}, {target, outer, false}, {plain, deep, true}, {outer, nullptr, false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Util::IsWindowIsThisOrChildRecursive(c.window, c.candidate), c.expected)
            << c.window->GetName() << " / " << (c.candidate ? c.candidate->GetName() : "null");
}

TEST(UtilImagesTest, ScaleWithRatioFitsAndCentres)
{
    struct Case { wxSize image; wxSize box; wxSize scaled; wxPoint offset; };
    const Case cases[] = {
        {{50, 100}, {40, 40}, {20, 40}, {10, 0}},  // tall
        {{100, 50}, {40, 40}, {40, 20}, {0, 10}},  // wide
        {{300, 100}, {50, 50}, {50, 16}, {0, 17}}, // truncated size
    };
    for (const auto& c : cases) {
        wxImage image(c.image);
        wxPoint offset(-1, -1);
        Util::ScaleWithRatio(c.box, image, offset);
        EXPECT_EQ(image.GetSize(), c.scaled) << c.image.x << "x" << c.image.y;
        EXPECT_EQ(offset, c.offset) << c.image.x << "x" << c.image.y;
    }
}

// Records every size and position it is given.
class RecordingWindow : public wxWindow {
public:
    RecordingWindow(wxWindow* parent, const wxPoint& at, const wxSize& size) : wxWindow(parent, wxID_ANY, at, size) {}
    std::vector<wxSize> sizes;

protected:
    void DoSetSize(int x, int y, int width, int height, int flags) override
    {
        sizes.emplace_back(width, height);
        wxWindow::DoSetSize(x, y, width, height, flags);
    }
};

TEST_F(UtilWindowsTest, ResizeAnimationTakesTenPacedStepsAndEndsAtTheTarget)
{
    struct Case { Util::MotionType type; wxSize from; wxSize to; wxSize end; size_t frames; };
    const Case cases[] = {
        {Util::ResizeBoth, {100, 50}, {300, 50}, {300, 50}, 10},
        {Util::ResizeBoth, {100, 50}, {300, 53}, {300, 53}, 10}, // 3 px: reached at once
        {Util::ResizeBoth, {100, 50}, {105, 47}, {105, 47}, 1},
        {Util::ResizeHorizontal, {100, 50}, {300, 80}, {300, 50}, 10},
        {Util::ResizeVertical, {100, 50}, {300, 80}, {100, 80}, 10},
        {Util::ResizeBoth, {100, 50}, {100, 50}, {100, 50}, 0},
    };
    for (const auto& c : cases) {
        testsupport::FakeClock clock;
        auto* window = new RecordingWindow(m_frame, wxPoint(7, 9), c.from);
        window->sizes.clear();
        Util::AnimatedSizeChange(window, c.from.x, c.from.y, c.to.x, c.to.y, c.type, true);
        ASSERT_EQ(window->sizes.size(), c.frames) << c.to.x << "x" << c.to.y << " type " << c.type;
        EXPECT_EQ(window->GetSize(), c.end);
        EXPECT_EQ(window->GetPosition(), wxPoint(7, 9));
        EXPECT_EQ(clock.Now() - 1000, 25 * c.frames) << "each frame is paced to 25 ms";
        if (c.frames == 10 && c.to.x == 300 && c.to.y == 50) {
            for (size_t i = 0; i < 10; ++i)
                EXPECT_EQ(window->sizes[i], wxSize(120 + 20 * int(i), 50));
        }
        window->Destroy();
    }
    Util::AnimatedSizeChange(nullptr, 0, 0, 10, 10, Util::ResizeBoth, false); // nothing to animate
}

TEST_F(UtilWindowsTest, SlideAnimationEndsWithBothWindowsAtTheirPlaces)
{
    struct Case { Util::MotionType type; wxPoint out; wxPoint in; };
    // From (0, 0) over a 200 x 100 area.
    const Case cases[] = {
        {Util::SlideRight, {200, 0}, {0, 0}},
        {Util::SlideLeft, {-200, 0}, {0, 0}},
        {Util::SlideDown, {0, 100}, {0, 0}},
        {Util::SlideUp, {0, -100}, {0, 0}},
    };
    for (const auto& c : cases) {
        testsupport::FakeClock clock;
        auto* outgoing = new PanelCtrl(m_frame, wxID_ANY, wxRect(0, 0, 200, 100));
        auto* incoming = new PanelCtrl(m_frame, wxID_ANY, wxRect(300, 300, 200, 100));
        Util::AnimatedSlide(outgoing, incoming, wxPoint(0, 0), wxSize(200, 100), c.type);
        EXPECT_EQ(outgoing->GetPosition(), c.out) << "type " << c.type;
        EXPECT_EQ(incoming->GetPosition(), c.in) << "type " << c.type;
        EXPECT_EQ(clock.Now() - 1000, 250u) << "ten frames of 25 ms";
        outgoing->Destroy();
        incoming->Destroy();
    }
}

} // namespace

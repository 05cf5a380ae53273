#include "ControlTestSupport.h"

#include "controls/ButtonCtrl.h"
#include "controls/VScrollBar.h"
#include "controls/VScrollCtrl.h"
#include "descriptors/ButtonCtrlDescriptor.h"
#include "descriptors/VScrollBarDescriptor.h"
#include "descriptors/VScrollCtrlDescriptor.h"
#include "factory/ControlIds.h"

#include <functional>

using namespace UIKit;

namespace {

class ScrollTest : public controltest::SkinnedTest {
public:
    // A 200-pixel scroll control whose bar (10 x 200, red thumb) has no buttons.
    VScrollBar* Bar()
    {
        m_ctrl = new VScrollCtrl(m_frame, wxID_ANY, wxRect(0, 0, 10, 200));
        auto* bar = new VScrollBar(m_ctrl, wxID_ANY, wxRect(0, 0, 10, 200));
        Load(bar, Describe<VScrollBarDescriptor>(
                      R"(<Control class="VScrollBar" name="VScrollBar" bounds="0,0,10,200"><Thumb>red.png</Thumb></Control>)"));
        Load(m_ctrl, Describe<VScrollCtrlDescriptor>(R"(<Control class="VScrollCtrl" bounds="0,0,10,200"/>)"));
        bar->Bind(wxEVT_SCROLL_CHANGED, [this](wxScrollEvent& e) { m_events.push_back(e.GetPosition()); });
        return bar;
    }
    static wxMouseEvent Mouse(wxEventType type, int y, int rotation = 0)
    {
        wxMouseEvent event(type);
        event.m_y = y;
        event.m_leftDown = type != wxEVT_LEFT_UP;
        event.m_wheelRotation = rotation;
        return event;
    }
    void Wheel(int rotation)
    {
        wxMouseEvent event = Mouse(wxEVT_MOUSEWHEEL, 0, rotation);
        m_ctrl->OnMouseWheel(event);
    }

    VScrollCtrl* m_ctrl = nullptr;
    std::vector<int> m_events;
};

// Track 200 high, content 1000 in 20 rows, 200 visible: step 50, ratio 5,
// thumb 40 high, so the thumb moves between 0 and 160.
TEST_F(ScrollTest, ThumbFollowsRangeAndClampsAtBothEnds)
{
    using Op = std::function<void(ScrollTest&, VScrollBar&)>;
    struct Case {
        const char* what;
        double start;
        Op op;
        double thumb;
        std::vector<int> events;
    };
    const Case cases[] = {
        {"wheel down one step", 0, [](ScrollTest& t, VScrollBar&) { t.Wheel(-120); }, 10, {50}},
        {"a big wheel turn is still one step", 0, [](ScrollTest& t, VScrollBar&) { t.Wheel(-960); }, 10, {50}},
        {"wheel up from the top", 0, [](ScrollTest& t, VScrollBar&) { t.Wheel(120); }, 0, {}},
        {"wheel down at the bottom resends", 160, [](ScrollTest& t, VScrollBar&) { t.Wheel(-120); }, 160, {800}},
        {"up button", 30, [](ScrollTest& t, VScrollBar&) {
             wxCommandEvent up(wxEVT_BUTTON, ID_UP);
             t.m_ctrl->GetEventHandler()->ProcessEvent(up);
         }, 20, {100}},
        {"click in the track centres the thumb", 0, [](ScrollTest&, VScrollBar& b) {
             auto e = Mouse(wxEVT_LEFT_DOWN, 100);
             b.OnLeftClick(e);
         }, 80, {400}},
        {"click near the bottom clamps", 0, [](ScrollTest&, VScrollBar& b) {
             auto e = Mouse(wxEVT_LEFT_DOWN, 199);
             b.OnLeftClick(e);
         }, 160, {800}},
        {"drag the thumb by 25", 0, [](ScrollTest&, VScrollBar& b) {
             auto press = Mouse(wxEVT_LEFT_DOWN, 10), move = Mouse(wxEVT_MOTION, 35), release = Mouse(wxEVT_LEFT_UP, 35);
             b.OnLeftClick(press);
             b.OnMotion(move);
             b.OnLeftRelease(release);
         }, 25, {125}},
        {"to bottom", 0, [](ScrollTest&, VScrollBar& b) { b.SetVScrollBarToBottom(); }, 160, {800}},
        {"negative at the top does nothing", 0, [](ScrollTest&, VScrollBar& b) { b.SetPos(-5); }, 0, {}},
        {"negative from 30 goes to the top", 30, [](ScrollTest&, VScrollBar& b) { b.SetPos(-5); }, 0, {0}},
        {"larger content keeps the first step", 30, [](ScrollTest&, VScrollBar& b) {
             b.SetScroll(3000, 20, 200);
             b.OnDown();
         }, 30 + 50 / 15.0, {500}},
        {"shrunk content pulls the thumb up", 160, [](ScrollTest&, VScrollBar& b) { b.SetScroll(600, 12, 200); }, 134, {402}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        VScrollBar* bar = Bar();
        bar->SetScroll(1000, 20, 200);
        bar->SetPos(c.start);
        m_events.clear();
        c.op(*this, *bar);
        EXPECT_EQ(bar->GetStep(), 50u);
        EXPECT_DOUBLE_EQ(bar->GetThumbPosition(), c.thumb);
        EXPECT_EQ(m_events, c.events);
        if (bar->HasCapture())
            bar->ReleaseMouse();
        m_ctrl->Destroy();
    }
}

TEST_F(ScrollTest, ThumbIsPaintedWhereItWasScrolled)
{
    VScrollBar* bar = Bar();
    bar->SetScroll(1000, 20, 200);
    bar->SetPos(80);
    const wxImage image = controltest::Render(wxSize(10, 200), [bar](wxDC& dc) { bar->DrawCustom(dc); });
    EXPECT_EQ(bar->GetThumbRect().height, 40);
    EXPECT_EQ(controltest::SwatchAt(image, 5, 79), "none");
    EXPECT_EQ(controltest::SwatchAt(image, 5, 80), "red.png");
    EXPECT_EQ(controltest::SwatchAt(image, 5, 119), "red.png");
    EXPECT_EQ(controltest::SwatchAt(image, 5, 120), "none");
}

// The bar fills the height the buttons leave; a down button below the bar
// goes to the bottom edge, one above it stays.
TEST_F(ScrollTest, ControlStretchesBarBetweenButtons)
{
    struct Case {
        int downY;
        wxPoint downAt;
    };
    for (const Case& c : {Case{200, wxPoint(0, 280)}, Case{0, wxPoint(0, 0)}}) {
        auto* ctrl = new VScrollCtrl(m_frame, wxID_ANY, wxRect(0, 0, 20, 100));
        auto* up = new ButtonCtrl(ctrl, ID_UP, wxRect(0, 0, 20, 20));
        auto* down = new ButtonCtrl(ctrl, ID_DOWN, wxRect(0, c.downY, 20, 20));
        auto* bar = new VScrollBar(ctrl, wxID_ANY, wxRect(0, 20, 20, 60));
        Load(bar, Describe<VScrollBarDescriptor>(R"(<Control class="VScrollBar" name="VScrollBar" bounds="0,20,20,60"/>)"));
        Load(ctrl, Describe<VScrollCtrlDescriptor>(R"(<Control class="VScrollCtrl" bounds="0,0,20,100"/>)"));
        ctrl->SetSize(20, 300);
        wxSizeEvent size(wxSize(20, 300));
        ctrl->OnSize(size);
        EXPECT_EQ(bar->GetSize().y, 260);
        EXPECT_EQ(bar->GetTrack().height, 260);
        EXPECT_EQ(down->GetPosition(), c.downAt);
        EXPECT_EQ(up->GetPosition(), wxPoint(0, 0));
        ctrl->Destroy();
    }
}

} // namespace

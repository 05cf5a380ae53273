#include "ControlTestSupport.h"

#include "controls/ButtonCtrl.h"
#include "controls/VScrollBar.h"
#include "controls/VScrollCtrl.h"
#include "descriptors/VScrollBarDescriptor.h"
#include "descriptors/VScrollCtrlDescriptor.h"
#include "factory/ControlIds.h"

#include <functional>

using namespace UIKit;

namespace {

class ScrollTest : public controltest::SkinnedTest {
public:
    // A scroll control of the size whose bar (named so it is found) fills it.
    VScrollBar* Scroll(const wxRect& ctrlBounds, const std::string& barBounds, const std::string& thumb)
    {
        m_ctrl = new VScrollCtrl(m_frame, wxID_ANY, ctrlBounds);
        auto* bar = new VScrollBar(m_ctrl, wxID_ANY, Describe<BaseCtrlDescriptor>("<Control bounds=\"" + barBounds + "\"/>")->GetBounds());
        Load(bar, Describe<VScrollBarDescriptor>("<Control name=\"VScrollBar\" bounds=\"" + barBounds + "\">" + thumb + "</Control>"));
        Load(m_ctrl, Describe<VScrollCtrlDescriptor>("<Control/>"));
        bar->Bind(wxEVT_SCROLL_CHANGED, [this](wxScrollEvent& e) { m_events.push_back(e.GetPosition()); });
        return bar;
    }
    // A mouse event at y with the left button down; `rotation` for the wheel.
    static wxMouseEvent Mouse(wxEventType type, int y, int rotation = 0)
    {
        wxMouseEvent event(type);
        event.m_y = y, event.m_leftDown = type != wxEVT_LEFT_UP, event.m_wheelRotation = rotation;
        return event;
    }

    VScrollCtrl* m_ctrl = nullptr;
    std::vector<int> m_events;
};

// Track 200 high, content 1000 in 20 rows, 200 visible: step 50, ratio 5,
// a 40-pixel thumb moving between 0 and 160; each case ends painted.
TEST_F(ScrollTest, ThumbFollowsRangeAndClampsAtBothEnds)
{
    using Op = std::function<void(ScrollTest&, VScrollBar&)>;
    auto click = [](int y) { return Op([y](ScrollTest&, VScrollBar& b) { auto e = Mouse(wxEVT_LEFT_DOWN, y); b.OnLeftClick(e); }); };
    auto wheel = [](int r) { return Op([r](ScrollTest& t, VScrollBar&) { auto e = Mouse(wxEVT_MOUSEWHEEL, 0, r); t.m_ctrl->OnMouseWheel(e); }); };
    auto setPos = [](double p) { return Op([p](ScrollTest&, VScrollBar& b) { b.SetPos(p); }); };
    const Op drag = [](ScrollTest&, VScrollBar& b) {
        auto press = Mouse(wxEVT_LEFT_DOWN, 10), move = Mouse(wxEVT_MOTION, 35), release = Mouse(wxEVT_LEFT_UP, 35);
        b.OnLeftClick(press), b.OnMotion(move), b.OnLeftRelease(release);
    };
    struct Case { const char* what; double start; Op op; double thumb; std::vector<int> events; };
    const Case cases[] = {
        {"wheel down one step", 0, wheel(-120), 10, {50}},
        {"a big wheel turn is still one step", 0, wheel(-960), 10, {50}},
        {"wheel up at the top", 0, wheel(120), 0, {}},
        {"wheel down at the bottom resends", 160, wheel(-120), 160, {800}},
        {"up button", 30, [](ScrollTest& t, VScrollBar&) { wxCommandEvent up(wxEVT_BUTTON, ID_UP); t.m_ctrl->ProcessWindowEvent(up); }, 20, {100}},
        {"click in the track centres the thumb", 0, click(100), 80, {400}},
        {"click near the bottom clamps", 0, click(199), 160, {800}},
        {"drag the thumb by 25", 0, drag, 25, {125}},
        {"to bottom", 0, [](ScrollTest&, VScrollBar& b) { b.SetVScrollBarToBottom(); }, 160, {800}},
        {"negative at the top does nothing", 0, setPos(-5), 0, {}},
        {"negative from 30 goes to the top", 30, setPos(-5), 0, {0}},
        {"larger content keeps the first step", 30, [](ScrollTest&, VScrollBar& b) { b.SetScroll(3000, 20, 200), b.OnDown(); }, 30 + 50 / 15.0, {500}},
        {"shrunk content pulls the thumb up", 160, [](ScrollTest&, VScrollBar& b) { b.SetScroll(600, 12, 200); }, 134, {402}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        VScrollBar* bar = Scroll(wxRect(0, 0, 10, 200), "0,0,10,200", "<Thumb>red.png</Thumb>");
        bar->SetScroll(1000, 20, 200);
        bar->SetPos(c.start);
        m_events.clear();
        c.op(*this, *bar);
        EXPECT_EQ(bar->GetStep(), 50u);
        EXPECT_DOUBLE_EQ(bar->GetThumbPosition(), c.thumb);
        EXPECT_EQ(m_events, c.events);
        const wxImage image = controltest::Render(wxSize(10, 200), [bar](wxDC& dc) { bar->DrawCustom(dc); });
        const int top = int(c.thumb), bottom = top + bar->GetThumbRect().height;
        EXPECT_EQ(controltest::SwatchAt(image, 5, top), "red.png");
        EXPECT_EQ(controltest::SwatchAt(image, 5, bottom - 1), "red.png");
        EXPECT_EQ(controltest::SwatchAt(image, 5, top > 0 ? top - 1 : bottom), "none");
        m_ctrl->Destroy();
    }
}

// The bar fills the height the buttons leave; a down button below the bar
// goes to the bottom edge, one above it stays.
TEST_F(ScrollTest, ControlStretchesBarBetweenButtons)
{
    for (const auto& [downY, downAt] : {std::pair{200, wxPoint(0, 280)}, std::pair{0, wxPoint(0, 0)}}) {
        VScrollBar* bar = Scroll(wxRect(0, 0, 20, 100), "0,20,20,60", "");
        auto* up = new ButtonCtrl(m_ctrl, ID_UP, wxRect(0, 0, 20, 20));
        auto* down = new ButtonCtrl(m_ctrl, ID_DOWN, wxRect(0, downY, 20, 20));
        m_ctrl->SetSize(20, 300);
        wxSizeEvent size(wxSize(20, 300));
        m_ctrl->OnSize(size);
        EXPECT_EQ(bar->GetTrack().height, 260);
        EXPECT_EQ(down->GetPosition(), downAt);
        EXPECT_EQ(up->GetPosition(), wxPoint(0, 0));
        m_ctrl->Destroy();
    }
}

} // namespace

// The smaller skinned controls: where the states box puts its state image
// and label and which state image it paints; the scroll bar's thumb and the
// scroll control's layout; the tool bar's spacers and items; the animation's
// frames and the progress bar's fill and frames; the month picker's and the
// numeric up-down's steps, ranges and typed text.
#include "ControlTestSupport.h"

#include "controls/AnimatedCtrl.h"
#include "controls/ButtonCtrl.h"
#include "controls/EditTextCtrl.h"
#include "controls/MonthPickerCtrl.h"
#include "controls/MyTextControl.h"
#include "controls/NumericUpDownCtrl.h"
#include "controls/ProgressBarCtrl.h"
#include "controls/StatesBoxCtrl.h"
#include "controls/StaticTextCtrl.h"
#include "controls/ToolBar.h"
#include "controls/VScrollBar.h"
#include "controls/VScrollCtrl.h"
#include "descriptors/AnimatedCtrlDescriptor.h"
#include "descriptors/ButtonCtrlDescriptor.h"
#include "descriptors/EditTextCtrlDescriptor.h"
#include "descriptors/ProgressBarCtrlDescriptor.h"
#include "descriptors/VScrollBarDescriptor.h"
#include "descriptors/VScrollCtrlDescriptor.h"
#include "factory/ControlIds.h"
#include "factory/CtrlFactory.h"

#include <wx/app.h>

#include <functional>

using controltest::Render;
using controltest::SwatchAt;
using namespace UIKit;
using Toolkit::DateTime;

namespace {

class StatesBoxTest : public controltest::SkinnedTest {};

TEST_F(StatesBoxTest, StateImageAndLabelPlacement)
{
    struct Case { const char* what; wxSize size; std::string image; std::string padding; wxPoint at; wxRect label; };
    const Case cases[] = {
        {"left", {200, 30}, R"(size="16,16" margin="4,0,4,0")", "", {4, 7}, {24, 0, 200, 30}},
        {"right", {200, 30}, R"(size="16,16" margin="4,0,4,0" placement="MiddleRight")", "", {176, 7}, {0, 0, 200, 30}},
        {"odd heights truncate", {200, 31}, R"(size="16,15" margin="4,0,4,0")", "", {4, 8}, {24, 0, 200, 31}},
        {"top margin moves down, bottom does not", {200, 30}, R"(size="16,16" margin="4,3,4,9")", "", {4, 10},
         {24, 0, 200, 30}},
        {"padding", {200, 30}, R"(size="16,16" margin="4,0,4,0")", R"( padding="10,5,10,5")", {4, 7}, {34, 5, 180, 20}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        auto* box = Build<StatesBoxCtrl, StatesBoxCtrlDescriptor>(
            "<Control bounds=\"0,0," + std::to_string(c.size.x) + "," + std::to_string(c.size.y) + "\"" + c.padding +
            "><StateImage " + c.image + "/><Label>Hi</Label></Control>");
        EXPECT_EQ(box->GetStateImagePosition(), c.at);
        EXPECT_EQ(box->GetFittedLabelArea(), c.label);
        box->Destroy();
    }
    auto* unloaded = new StatesBoxCtrl(m_frame, wxID_ANY, wxRect(0, 0, 20, 20));
    EXPECT_FALSE(unloaded->LoadDescriptor({}));
    unloaded->Destroy();
}

// The image painted at the state image's place for each state; the
// unknown image is missing in the second skin.
TEST_F(StatesBoxTest, PaintsTheImageOfItsState)
{
    for (const bool withUnknown : {true, false}) {
        auto* box = Build<StatesBoxCtrl, StatesBoxCtrlDescriptor>(
            std::string(R"(<Control bounds="0,0,100,20"><Enabled>grey.png</Enabled>
            <StateImage size="8,8" margin="2,0,0,0"><ImageActive>green.png</ImageActive><ImageInactive>red.png</ImageInactive>)") +
            (withUnknown ? "<ImageUnknown>blue.png</ImageUnknown>" : "") + "</StateImage></Control>");
        for (const auto& [state, swatch] :
             {std::pair{0, "green.png"}, {1, "red.png"}, {2, "blue.png"}, {7, "blue.png"}}) {
            box->m_state = state;
            const wxImage image = controltest::Render(wxSize(100, 20), [box](wxDC& dc) { box->DrawCustom(dc); });
            // The state image, then the background beside it.
            EXPECT_EQ(SwatchAt(image, 4, 10) + " " + SwatchAt(image, 50, 10),
                      std::string(withUnknown || state < 2 ? swatch : "grey.png") + " grey.png")
                << state;
        }
        box->Destroy();
    }
}

class ScrollTest : public controltest::SkinnedTest {
public:
    // A scroll control of the size whose bar (named so it is found) fills it.
    VScrollBar* Scroll(const wxRect& ctrlBounds, const std::string& barBounds, const std::string& thumb)
    {
        m_ctrl = new VScrollCtrl(m_frame, wxID_ANY, ctrlBounds);
        auto* bar = Build<VScrollBar, VScrollBarDescriptor>("<Control name=\"VScrollBar\" bounds=\"" + barBounds +
                                                                "\">" + thumb + "</Control>",
                                                            m_ctrl);
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
    auto click = [](int y) {
        return Op([y](ScrollTest&, VScrollBar& b) {
            auto e = Mouse(wxEVT_LEFT_DOWN, y);
            b.OnLeftClick(e);
        });
    };
    auto wheel = [](int r) {
        return Op([r](ScrollTest& t, VScrollBar&) {
            auto e = Mouse(wxEVT_MOUSEWHEEL, 0, r);
            t.m_ctrl->OnMouseWheel(e);
        });
    };
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
        {"up button", 30, [](ScrollTest& t, VScrollBar&) {
             wxCommandEvent up(wxEVT_BUTTON, ID_UP);
             t.m_ctrl->ProcessWindowEvent(up);
         },
         20,
         {100}},
        {"click in the track centres the thumb", 0, click(100), 80, {400}},
        {"click near the bottom clamps", 0, click(199), 160, {800}},
        {"drag the thumb by 25", 0, drag, 25, {125}},
        {"to bottom", 0, [](ScrollTest&, VScrollBar& b) { b.SetVScrollBarToBottom(); }, 160, {800}},
        {"negative at the top does nothing", 0, setPos(-5), 0, {}},
        {"negative from 30 goes to the top", 30, setPos(-5), 0, {0}},
        {"larger content keeps the first step", 30,
         [](ScrollTest&, VScrollBar& b) { b.SetScroll(3000, 20, 200), b.OnDown(); }, 30 + 50 / 15.0, {500}},
        {"shrunk content pulls the thumb up", 160, [](ScrollTest&, VScrollBar& b) { b.SetScroll(600, 12, 200); }, 134,
         {402}},
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
        // The thumb's first and last rows, and a row just outside it.
        EXPECT_EQ(SwatchAt(image, 5, top) + " " + SwatchAt(image, 5, bottom - 1) + " " +
                      SwatchAt(image, 5, top > 0 ? top - 1 : bottom),
                  "red.png red.png none");
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

class ToolbarTest : public controltest::FactoryTest {
protected:
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
        auto* bar = dynamic_cast<ToolBar*>(Factory().CreateControl(Parse(xml + "</Control>"), m_frame, -1));
        wxTheApp->ProcessPendingEvents();
        return bar;
    }
};

TEST_F(ToolbarTest, SpacersShareTheFreeWidth)
{
    // `hidden`: id of a button hidden with ShowItem, or 0.
    struct Case {
        const char* what;
        int width, side, top;
        std::string items;
        int hidden;
        std::vector<int> xs;
        int spacer;
    };
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
            EXPECT_EQ(bar->GetItems()[i]->GetRect(), wxRect(c.xs[i], 5 + c.top, c.items[i] == 'S' ? c.spacer : 40, 20))
                << i;
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
        item->Bind(wxEventTypeTag<wxCommandEvent>(ToolBar::EVT_PUSH_BUTTON),
                   [&told, id](wxCommandEvent&) { told.push_back("push " + std::to_string(id)); });
        item->Bind(wxEventTypeTag<wxCommandEvent>(ToolBar::EVT_RAISE_BUTTON),
                   [&told, id](wxCommandEvent&) { told.push_back("raise " + std::to_string(id)); });
    }
    EXPECT_EQ(ids, (std::vector<int>{ID_HOME, ID_PREV2_STATE, ID_SETTINGS, ID_NEXT_STATE}));
    for (auto [id, raise] :
         {std::pair{ID_HOME, true}, {ID_SETTINGS, true}, {ID_SETTINGS, true}, {ID_NEXT_STATE, false}})
        bar->PushButton(id, raise);
    wxTheApp->ProcessPendingEvents();
    EXPECT_EQ(told, (std::vector<std::string>{"push 8003", "raise 8003", "push 8004", "push 8007"}));
    bar->RemoveAllItems();
    EXPECT_TRUE(bar->GetItems().empty() && !wxWindow::FindWindowById(ID_HOME, bar));
}

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
    ProgressBarCtrl* Bar(const std::string& bounds, const std::string& inner)
    {
        return Build<ProgressBarCtrl, ProgressBarCtrlDescriptor>("<Control bounds=\"" + bounds + "\"" + inner +
                                                                 "</Control>");
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
    struct Case { const char* repeat; int ticks; unsigned int frame; bool running; };
    const Case cases[] = {{"no", 3, 3, true}, {"no", 4, 3, false}, {"yes", 4, 0, true}};
    for (const auto& c : cases) {
        auto* animation = Build<AnimatedCtrl, AnimatedCtrlDescriptor>(
            std::string(R"(<Control bounds="0,0,10,8"><Images>strip.png</Images><FrameDelay>50</FrameDelay><Repeat>)") +
            c.repeat + "</Repeat></Control>");
        animation->Start(0);
        for (int i = 0; i < c.ticks; ++i)
            animation->Tick();
        EXPECT_EQ(std::to_string(animation->GetFrame()) + " " + Shown(animation) +
                      (animation->IsRunning() ? " running" : ""),
                  std::to_string(c.frame) + " " + c_frameColours[c.frame] + (c.running ? " running" : ""))
            << c.repeat << " after " << c.ticks;
        animation->Destroy();
    }
}

TEST_F(AnimatedProgressTest, BadStripsAreReportedAndNeverDivideByZero)
{
    struct Case { const char* xml; unsigned int frames; size_t reports; };
    const Case cases[] = {
        {R"(<Control bounds="0,0,10,8"><Images>strip.png</Images></Control>)", 4, 0},
        {R"(<Control bounds="0,0,10,8"><Images>ragged.png</Images></Control>)", 3, 1},
        {R"(<Control bounds="0,0,0,8"><Images>strip.png</Images></Control>)", 0, 1},
        {R"(<Control bounds="0,0,10,8"></Control>)", 0, 0},
    };
    for (const auto& c : cases) {
        descriptortest::ErrorCapture errors;
        auto* animation = Build<AnimatedCtrl, AnimatedCtrlDescriptor>(c.xml);
        EXPECT_EQ(animation->GetDescriptor().DynamicCast<AnimatedCtrlDescriptor>()->GetFrameCount(), c.frames) << c.xml;
        EXPECT_EQ(errors.Lines().size(), c.reports) << c.xml;
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
    struct Case { long long value; int width; };
    const Case cases[] = {{100, 30}, {-5, 30}, {1000, 90}};
    for (const auto& c : cases) {
        ProgressBarCtrl* bar = Bar(
            "0,0,100,12",
            R"( padding="5,2,5,2"><BackgroundImage>grey.png</BackgroundImage><ProgressImage>green.png</ProgressImage>)");
        bar->SetValues(100, c.value, 300);
        EXPECT_EQ(bar->GetBarWidth(), c.width) << c.value;
        const wxImage shown = Render(bar->GetSize(), [&](wxDC& dc) { bar->DrawCustom(dc); });
        // The last filled column, the first empty one, and the padding, which shows the background.
        EXPECT_EQ(SwatchAt(shown, 5 + c.width - 1, 6) + " " + SwatchAt(shown, 5 + c.width, 6) + " " +
                      SwatchAt(shown, 2, 1),
                  "green.png grey.png grey.png")
            << c.value;
        bar->Destroy();
    }
}

TEST_F(AnimatedProgressTest, BarRangeAndValueAreKeptConsistent)
{
    ProgressBarCtrl* bar =
        Bar("0,0,100,8", "><BackgroundImage>grey.png</BackgroundImage><ProgressImage>green.png</ProgressImage>");
    struct Step { long long minimum, value, maximum; long long wantMinimum, wantValue, wantMaximum; int width; };
    const Step steps[] = {
        {100, 50, 0, 0, 50, 100, 50},   // reversed bounds are swapped
        {0, 0, 200, 0, 0, 200, 0},      // no bar at 0
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
    struct Case { long long minimum, value, maximum; unsigned int frame; };
    const Case cases[] = {{0, 29, 90, 0}, {0, 30, 90, 1}, {0, 200, 90, 3}, {5, 5, 5, 0}, {0, LLONG_MAX, LLONG_MAX, 3}};
    for (const auto& c : cases) {
        ProgressBarCtrl* bar = Bar("0,0,10,8", "><AnimatedImages>strip.png</AnimatedImages>");
        bar->SetValues(c.minimum, c.value, c.maximum);
        EXPECT_EQ(bar->GetFrame(), c.frame) << c.value << " of " << c.minimum << ".." << c.maximum;
        EXPECT_EQ(Shown(bar), c_frameColours[c.frame]) << c.value;
        bar->Destroy();
    }
}

class PickerUpDownTest : public controltest::SkinnedTest {
protected:
    void SetUp() override
    {
        SkinnedTest::SetUp();
        const char* const months[] = {"January", "February", "March",     "April",   "May",      "June",
                                      "July",    "August",   "September", "October", "November", "December"};
        for (int m = 0; m < 12; ++m)
            m_resources.strings["LB_MONTH_F" + std::to_string(m + 1)] =
                TString<wchar_t>(wxString(months[m]).ToStdWstring());
    }

    template <class C, class D>
    C* Child(wxWindow* parent, int id, const std::string& cls, const std::string& name)
    {
        return Build<C, D>("<Control class=\"" + cls + "\" name=\"" + name + "\" bounds=\"0,0,40,20\"/>", parent, id);
    }
    // A picker with its label and buttons, counting its change events.
    MonthPickerCtrl* Picker()
    {
        auto* picker =
            Build<MonthPickerCtrl, PanelCtrlDescriptor>(R"(<Control class="MonthPickerCtrl" bounds="0,0,200,20"/>)");
        Child<StaticTextCtrl, StaticTextCtrlDescriptor>(picker, wxID_ANY, "StaticTextCtrl", "DateTimeLbl");
        Child<ButtonCtrl, ButtonCtrlDescriptor>(picker, ID_UP, "ButtonCtrl", "Up");
        Child<ButtonCtrl, ButtonCtrlDescriptor>(picker, ID_DOWN, "ButtonCtrl", "Down");
        picker->Bind(wxEventTypeTag<wxCommandEvent>(MonthPickerCtrl::EVT_MONTH_CHANGED),
                     [this](wxCommandEvent&) { ++m_changes; });
        return picker;
    }
    NumericUpDownCtrl* UpDown(bool complete = true)
    {
        auto* updown = new NumericUpDownCtrl(m_frame, wxID_ANY, wxRect(0, 0, 100, 20));
        Child<ButtonCtrl, ButtonCtrlDescriptor>(updown, ID_DOWN, "ButtonCtrl", "Down");
        Child<ButtonCtrl, ButtonCtrlDescriptor>(updown, ID_UP, "ButtonCtrl", "Up");
        if (complete)
            m_text = Child<EditTextCtrl, EditTextCtrlDescriptor>(updown, wxID_ANY, "EditTextCtrl", "Value");
        m_loaded =
            Load(updown, Describe<PanelCtrlDescriptor>(R"(<Control class="NumericUpDownCtrl" bounds="0,0,100,20"/>)"));
        updown->Bind(wxEventTypeTag<wxCommandEvent>(NumericUpDownCtrl::EVT_VALUE_CHANGED),
                     [this](wxCommandEvent&) { ++m_changes; });
        return updown;
    }
    // Change events posted since the last call.
    int Changes()
    {
        wxTheApp->ProcessPendingEvents();
        return std::exchange(m_changes, 0);
    }
    static void Press(wxWindow* control, int id)
    {
        wxCommandEvent click(wxEVT_BUTTON, id);
        control->GetEventHandler()->ProcessEvent(click);
    }
    static bool Enabled(wxWindow* parent, int id) { return wxWindow::FindWindowById(id, parent)->IsEnabled(); }
    static Toolkit::smart_ptr<DateTime> Day(int year, int month, int day)
    {
        return Toolkit::make_smart<DateTime>(year, month, day, 0, 0, 0);
    }

    int m_changes = 0;
    EditTextCtrl* m_text = nullptr;
    bool m_loaded = false;
};

TEST_F(PickerUpDownTest, MonthStepsKeepTheDayWithinTheMonthReached)
{
    struct Case { DateTime from; int id; DateTime to; const wchar_t* text; };
    const Case cases[] = {
        {DateTime(2009, 1, 31, 10, 0, 0), ID_UP, DateTime(2009, 2, 28, 10, 0, 0), L"February, 2009"},
        {DateTime(2009, 3, 31), ID_DOWN, DateTime(2009, 2, 28), L"February, 2009"},
    };
    for (const auto& c : cases) {
        MonthPickerCtrl* picker = Picker();
        picker->SetDate(c.from);
        Changes();
        Press(picker, c.id);
        EXPECT_EQ(picker->GetDate(), c.to) << c.to.GetMonth();
        EXPECT_EQ(picker->GetText() + L" " + std::to_wstring(Changes()), c.text + std::wstring(L" 1"));
        picker->Destroy();
    }
}

TEST_F(PickerUpDownTest, MonthRangeBoundsTheDateAndTheButtons)
{
    MonthPickerCtrl* picker = Picker();
    picker->SetDate(*Day(2009, 4, 1));
    picker->SetRange(Day(2009, 3, 20), Day(2009, 5, 9));
    Changes();
    picker->SetRange(Day(2009, 3, 1), Day(2009, 5, 31));
    EXPECT_EQ(Changes(), 0) << "the same months again change nothing";

    Press(picker, ID_UP);
    EXPECT_EQ(picker->GetDate(), *Day(2009, 5, 1));
    EXPECT_FALSE(Enabled(picker, ID_UP)) << "1 June is past the range";
    EXPECT_EQ(Changes(), 1);

    // A day later in the month than the range's end: stepping up past the
    // end lands on the end itself, never beyond.
    picker->SetDate(DateTime(2009, 4, 15));
    Changes();
    Press(picker, ID_UP);
    EXPECT_EQ(picker->GetDate(), *Day(2009, 5, 1));
    EXPECT_EQ(Changes(), 1);

    // A range that ends before it starts leaves the date on its end.
    picker->SetRange(Day(2009, 8, 1), Day(2009, 6, 1));
    EXPECT_EQ(picker->GetDate(), *Day(2009, 6, 1));
    EXPECT_FALSE(Enabled(picker, ID_UP) || Enabled(picker, ID_DOWN));
    EXPECT_EQ(Changes(), 1);
}

TEST_F(PickerUpDownTest, NumericStepsClampAndWrapWithoutOverflow)
{
    struct Case { long long minimum, maximum, value; unsigned long long step; int id; long long want; };
    const Case cases[] = {
        {0, 10, 9, 3, ID_UP, 10},
        {0, 10, 1, 3, ID_DOWN, 0}, // down button disabled at the minimum, checked by the month range
        {0, 10, 5, 0, ID_UP, 6}, // a step of 0 is 1
        {LLONG_MIN, LLONG_MAX, LLONG_MAX - 1, 5, ID_UP, LLONG_MIN + 3},
        {0, LLONG_MAX, LLONG_MAX - 1, 5, ID_UP, 0}, // wrapped below the range, clamped
        {0, 10, 10, 1, ID_UP, 10},
    };
    for (const auto& c : cases) {
        NumericUpDownCtrl* updown = UpDown();
        updown->SetRange(c.minimum, c.maximum);
        updown->SetValue(c.value);
        updown->SetStep(c.step);
        Changes();
        Press(updown, c.id);
        EXPECT_EQ(updown->GetValue(), c.want) << c.value << " step " << c.step;
        // The text shows the value, Up is enabled below the maximum, one change is posted.
        EXPECT_EQ(m_text->GetControlLabel() + (Enabled(updown, ID_UP) ? L" up " : L" ") + std::to_wstring(Changes()),
                  std::to_wstring(c.want) + (c.want < c.maximum ? L" up " : L" ") + L"1") << c.value;
        updown->Destroy();
    }
}

TEST_F(PickerUpDownTest, NumericTypedTextIsTakenOnlyWhenItIsANumber)
{
    struct Case { const wchar_t* typed; long long value; const wchar_t* text; int changes; };
    const Case cases[] = {
        {L"12", 12, L"12", 1},     {L"-3", 0, L"0", 1}, // clamped to the minimum
        {L"7", 7, L"7", 0},        {L"12a", 7, L"7", 0},
        {L"", 7, L"7", 0},         {L"99999999999999999999", 100, L"100", 1},
    };
    // The same rules whether the text is read as it changes or when the box
    // loses the focus.
    for (const wxEventType type : {wxEventType(wxEVT_TEXT), EditTextCtrl::EVT_EDIT_TEXT_KILL_FOCUS}) {
        NumericUpDownCtrl* updown = UpDown();
        updown->SetRange(0, 100);
        updown->SetValue(7);
        Changes();
        for (const auto& c : cases) {
            m_text->GetTextBox()->ChangeValue(c.typed);
            wxCommandEvent typed(type, m_text->GetId());
            updown->GetEventHandler()->ProcessEvent(typed);
            EXPECT_EQ(updown->GetValue(), c.value) << c.typed;
            EXPECT_EQ(m_text->GetControlLabel(), c.text) << c.typed;
            EXPECT_EQ(Changes(), c.changes) << c.typed;
            updown->SetValue(7);
            Changes();
        }
        updown->Destroy();
    }
}

TEST_F(PickerUpDownTest, SettingTheSameValueOrRangePostsNothing)
{
    NumericUpDownCtrl* updown = UpDown();
    updown->SetValue(5);
    EXPECT_EQ(Changes(), 1);
    updown->SetValue(5);
    updown->SetRange(LLONG_MIN, LLONG_MAX);
    updown->SetRange(0, 10);
    EXPECT_EQ(Changes(), 0) << "a range that keeps the value posts nothing";

    MonthPickerCtrl* picker = Picker();
    picker->SetDate(DateTime(2009, 4, 1));
    Changes();
    picker->SetDate(DateTime(2009, 4, 1));
    picker->Show(true);
    EXPECT_EQ(Changes(), 0);

    UpDown(false);
    EXPECT_FALSE(m_loaded) << "an up-down without its text box fails to load";
}

} // namespace

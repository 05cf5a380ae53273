#include "ControlTestSupport.h"

#include "controls/PanelCtrl.h"
#include "descriptors/PanelCtrlDescriptor.h"

#include <vector>

using namespace UIKit;
using controltest::PixelAt;
using controltest::Render;
using controltest::SwatchAt;

namespace {

// Counts redraws and enter-handler runs; the inside flag can be set directly.
class CountingPanel : public PanelCtrl {
public:
    CountingPanel(wxWindow* parent, const wxRect& bounds) : PanelCtrl(parent, wxID_ANY, bounds) {}
    void RefreshUpdate(bool invalidate) override
    {
        ++redraws;
        PanelCtrl::RefreshUpdate(invalidate);
    }
    void OnEnterWindow(wxMouseEvent& event) override
    {
        ++enters;
        PanelCtrl::OnEnterWindow(event);
    }
    int redraws = 0;
    int enters = 0;
};

// Paints its left half in one colour and its right half in another.
class TwoToneCtrl : public SkinnedControl {
public:
    TwoToneCtrl(wxWindow* parent, const wxRect& bounds) : SkinnedControl(parent, wxID_ANY, bounds, 0) {}
    void DrawCustom(wxDC& dc) override
    {
        const wxSize size = GetClientSize();
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(wxBrush(left));
        dc.DrawRectangle(0, 0, size.x / 2, size.y);
        dc.SetBrush(wxBrush(right));
        dc.DrawRectangle(size.x / 2, 0, size.x - size.x / 2, size.y);
    }
    wxColour left = *wxBLUE;
    wxColour right = *wxGREEN;
};

// Draws no content of its own: only its background shows.
class ClearCtrl : public SkinnedControl {
public:
    ClearCtrl(wxWindow* parent, const wxRect& bounds) : SkinnedControl(parent, wxID_ANY, bounds, 0) {}
    void DrawCustom(wxDC&) override {}
};

class ControlTest : public controltest::SkinnedTest {};

TEST_F(ControlTest, StateChangesRedrawOnlyWhenSomethingChanges)
{
    auto* panel = new CountingPanel(m_frame, wxRect(0, 0, 40, 40));
    panel->redraws = 0;
    EXPECT_FALSE(panel->Enable(true)) << "already enabled";
    EXPECT_TRUE(panel->Enable(false));
    EXPECT_FALSE(panel->Enable(false));
    panel->Select(true);
    panel->Select(true);
    EXPECT_EQ(panel->redraws, 2);

    // A child disabled inside a disabled container keeps its own state.
    auto* child = new CountingPanel(panel, wxRect(0, 0, 20, 20));
    child->Enable(false);
    panel->Enable(true);
    EXPECT_FALSE(child->IsEnabled());
}

TEST_F(ControlTest, EnteringAChildCountsAsEnteringEveryEnclosingControl)
{
    auto* outer = new CountingPanel(m_frame, wxRect(0, 0, 100, 100));
    auto* inner = new CountingPanel(outer, wxRect(10, 10, 50, 50));
    auto* button = new CountingPanel(inner, wxRect(5, 5, 20, 20));

    controltest::Mouse(outer, wxEVT_ENTER_WINDOW);
    outer->redraws = 0;
    controltest::Mouse(button, wxEVT_ENTER_WINDOW);
    EXPECT_TRUE(button->IsInside() && inner->IsInside());
    EXPECT_EQ(outer->enters, 2) << "the panel's enter handler runs again";
    EXPECT_EQ(outer->redraws, 0) << "but the panel was already inside";
    EXPECT_TRUE(outer->IsChildrenInside());

    controltest::Mouse(button, wxEVT_LEAVE_WINDOW);
    EXPECT_FALSE(button->IsInside() || inner->IsInside() || outer->IsInside());
    EXPECT_FALSE(outer->IsChildrenInside());
}

TEST_F(ControlTest, BackgroundColourAlphaDecidesHowMuchOfTheParentShows)
{
    auto* parent = new TwoToneCtrl(m_frame, wxRect(0, 0, 60, 40));
    // Straddles the parent's two halves (the split is at x = 30).
    auto* child = new ClearCtrl(parent, wxRect(20, 10, 20, 20));
    struct Case { wxColour colour; wxColour left; wxColour right; };
    const Case cases[] = {
        {wxColour(), *wxBLUE, *wxGREEN}, // no colour: the parent's rendering
        {wxColour(255, 0, 0, 255), *wxRED, *wxRED},
        {wxColour(255, 0, 0, 128), wxColour(128, 0, 127), wxColour(128, 127, 0)},
    };
    const auto near = [](const wxColour& a, const wxColour& b) {
        return std::abs(a.Red() - b.Red()) <= 3 && std::abs(a.Green() - b.Green()) <= 3 &&
               std::abs(a.Blue() - b.Blue()) <= 3;
    };
    for (const auto& c : cases) {
        child->SetBackgroundColor(c.colour);
        const wxImage image = Render(wxSize(20, 20), [&](wxDC& dc) { child->DrawBitmap(dc, wxRect(0, 0, 20, 20)); });
        const wxString name = c.colour.IsOk() ? c.colour.GetAsString(wxC2S_CSS_SYNTAX) : "unset";
        EXPECT_TRUE(near(PixelAt(image, 5, 10), c.left)) << name << " left " << PixelAt(image, 5, 10).GetAsString();
        EXPECT_TRUE(near(PixelAt(image, 15, 10), c.right)) << name << " right " << PixelAt(image, 15, 10).GetAsString();
    }
}

TEST_F(ControlTest, InvalidationReachesTheWholeSubtree)
{
    auto* root = new TwoToneCtrl(m_frame, wxRect(0, 0, 60, 40));
    auto* child = new ClearCtrl(root, wxRect(0, 0, 20, 20));
    auto* grandchild = new ClearCtrl(child, wxRect(0, 0, 10, 10));
    const auto cornerOfGrandchild = [&] {
        return PixelAt(Render(wxSize(10, 10), [&](wxDC& dc) { grandchild->DrawBitmap(dc, wxRect(0, 0, 10, 10)); }), 2,
                       2);
    };
    EXPECT_EQ(cornerOfGrandchild(), *wxBLUE);

    root->left = *wxRED;
    EXPECT_EQ(cornerOfGrandchild(), *wxBLUE) << "the caches are used until invalidated";
    child->RefreshUpdate(true);
    EXPECT_FALSE(grandchild->IsCustomBitmapValid());
    EXPECT_EQ(cornerOfGrandchild(), *wxBLUE) << "invalidation goes down, not up: rebuilt from the root's stale cache";
    root->RefreshUpdate(true);
    EXPECT_EQ(cornerOfGrandchild(), *wxRED);
}

TEST_F(ControlTest, PanelShowsDisabledThenSelectedThenNormalImage)
{
    const std::string noDisabled = "<BackgroundImage>red.png</BackgroundImage><Selected>blue.png</Selected>";
    struct Case { std::string images; bool enabled; bool selected; const char* shown; };
    // The order of states is the rule buttons share (see the button test);
    // these cases check which images a panel feeds it.
    const Case cases[] = {
        {noDisabled, false, true, "blue.png"},
        {"<Enabled>yellow.png</Enabled>", true, false, "yellow.png"},
        {"<BackgroundImage>cyan.png</BackgroundImage><Enabled>yellow.png</Enabled>", true, false, "cyan.png"},
    };
    for (const auto& c : cases) {
        auto* panel = Build<PanelCtrl, PanelCtrlDescriptor>(R"(<Control class="PanelCtrl" bounds="0,0,20,20">)" +
                                                            c.images + "</Control>");
        panel->Enable(c.enabled);
        panel->Select(c.selected);
        const wxImage image = Render(wxSize(20, 20), [&](wxDC& dc) { panel->DrawCustom(dc); });
        EXPECT_EQ(SwatchAt(image, 10, 10), c.shown)
            << c.images << " enabled " << c.enabled << " selected " << c.selected;
        panel->Destroy();
    }
}

struct Posted { wxEventType type; int id; int integer; long extra; bool operator==(const Posted&) const = default; };

std::ostream& operator<<(std::ostream& os, const Posted& p)
{
    return os << "{type " << p.type << ", id " << p.id << ", int " << p.integer << ", extra " << p.extra << "}";
}

class PanelKeysTest : public ControlTest {
protected:
    void SetUp() override
    {
        ControlTest::SetUp();
        m_panel = new PanelCtrl(m_frame, wxID_ANY, wxRect(0, 0, 40, 40));
        for (const wxEventType type : {PanelCtrl::EVT_KEYPRESSED_ENTER, PanelCtrl::EVT_KEYDOWN, PanelCtrl::EVT_KEYUP,
                                       PanelCtrl::EVT_KEYPRESSED_TAB, PanelCtrl::EVT_KEYPRESSED_ESC,
                                       PanelCtrl::EVT_SHORTKEY_HELP})
            m_frame->Bind(wxEventTypeTag<wxCommandEvent>(type), [this](wxCommandEvent& e) {
                m_posted = {e.GetEventType(), e.GetId(), e.GetInt(), e.GetExtraLong()};
            });
    }
    void TearDown() override
    {
        PanelCtrl::SetHelpHotkeyTest({});
        ControlTest::TearDown();
    }
    // Sends the key, with modifier bits as in the events (Alt 1, Ctrl 2,
    // Shift 4), and returns what the panel posted (it reaches the frame:
    // command events travel up).
    Posted Key(wxEventType type, int code, int modifiers, int id = 77)
    {
        m_posted = {};
        wxKeyEvent key(type);
        key.m_keyCode = code;
        key.SetAltDown(modifiers & 1);
        key.SetControlDown(modifiers & 2);
        key.SetShiftDown(modifiers & 4);
        key.SetId(id);
        EXPECT_TRUE(m_panel->GetEventHandler()->ProcessEvent(key)) << "the key is consumed";
        EXPECT_EQ(m_posted.type, 0) << "posted, not sent";
        testsupport::ProcessEventsUntil([&] { return m_posted.type != 0; });
        return m_posted;
    }

    PanelCtrl* m_panel = nullptr;
    Posted m_posted{};
};

TEST_F(PanelKeysTest, KeyDownPostsTheLibrarysKeyEvents)
{
    struct Case { int code; int modifiers; Posted expected; };
    const Case cases[] = {
        {WXK_RETURN, 0, {PanelCtrl::EVT_KEYPRESSED_ENTER, -1, 0, 0}},
        {WXK_NUMPAD_ENTER, 4, {PanelCtrl::EVT_KEYPRESSED_ENTER, -1, 0, 0}},
        {WXK_RETURN, 2, {PanelCtrl::EVT_KEYDOWN, -1, 13, 2}},
        {WXK_TAB, 0, {PanelCtrl::EVT_KEYPRESSED_TAB, 77, 0, 0}},
        {WXK_ESCAPE, 0, {PanelCtrl::EVT_KEYPRESSED_ESC, 77, 0, 0}},
        {'A', 5, {PanelCtrl::EVT_KEYDOWN, -1, 'A', 5}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Key(wxEVT_KEY_DOWN, c.code, c.modifiers), c.expected) << c.code << " with " << c.modifiers;
}

TEST_F(PanelKeysTest, KeyUpAsksTheHelpHotkeyWithTheModifiersHeldAtThePress)
{
    std::vector<int> asked;
    PanelCtrl::SetHelpHotkeyTest([&](int code) {
        asked.push_back(code);
        return code == 'H' + 614;
    });
    struct Case { int atPress; int atRelease; int askedCode; Posted expected; };
    const Case cases[] = {
        {6, 6, 'H' + 614, {PanelCtrl::EVT_SHORTKEY_HELP, -1, 'H', 614}},
        {6, 0, 'H' + 614, {PanelCtrl::EVT_SHORTKEY_HELP, -1, 'H', 614}}, // what counts is the press
        {2, 2, 'H' + 308, {PanelCtrl::EVT_KEYUP, -1, 'H', 2}},
        {0, 6, 'H', {PanelCtrl::EVT_KEYUP, -1, 'H', 6}},
    };
    for (const auto& c : cases) {
        Key(wxEVT_KEY_DOWN, 'H', c.atPress);
        asked.clear();
        EXPECT_EQ(Key(wxEVT_KEY_UP, 'H', c.atRelease), c.expected) << c.atPress << " / " << c.atRelease;
        EXPECT_EQ(asked, std::vector<int>{c.askedCode});
    }
    // The modifiers remembered at a press are used once.
    Key(wxEVT_KEY_DOWN, 'H', 6);
    Key(wxEVT_KEY_UP, 'H', 6);
    asked.clear();
    EXPECT_EQ(Key(wxEVT_KEY_UP, 'H', 6), (Posted{PanelCtrl::EVT_KEYUP, -1, 'H', 6}));
    EXPECT_EQ(asked, std::vector<int>{'H'});
}

} // namespace

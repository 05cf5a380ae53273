// Buttons: clicks, their pace, the cursor, the label area and the state
// images; text controls: labels fitted once per text, clicks through a
// label, the edit box's emptying, margins, keys and filters.
#include "ControlTestSupport.h"

#include "controls/ButtonCtrl.h"
#include "controls/EditTextCtrl.h"
#include "controls/ImageCtrl.h"
#include "controls/MyTextControl.h"
#include "controls/StaticTextCtrl.h"
#include "descriptors/ButtonCtrlDescriptor.h"
#include "descriptors/EditTextCtrlDescriptor.h"
#include "descriptors/StaticTextCtrlDescriptor.h"
#include "factory/ControlIds.h"

using namespace UIKit;
using controltest::Mouse;
using controltest::Render;
using controltest::SwatchAt;

namespace {

class ButtonCtrlTest : public controltest::SkinnedTest {
protected:
    ButtonCtrl* Button(const std::string& inner, int id = ID_OK, const wxRect& bounds = wxRect(0, 0, 100, 30))
    {
        const std::string xml = "<Control class=\"ButtonCtrl\" bounds=\"0,0," + std::to_string(bounds.width) + "," +
                                std::to_string(bounds.height) + "\"" + inner + "</Control>";
        auto* button = new ButtonCtrl(m_frame, id, bounds);
        Load(button, Describe<ButtonCtrlDescriptor>(xml));
        button->Bind(wxEVT_BUTTON, [this](wxCommandEvent& e) {
            ++m_clicks;
            EXPECT_EQ(e.GetInt(), -1);
            if (m_onClick)
                m_onClick();
        });
        return button;
    }
    static void Click(ButtonCtrl* button)
    {
        Mouse(button, wxEVT_LEFT_DOWN);
        Mouse(button, wxEVT_LEFT_UP);
    }

    int m_clicks = 0;
    std::function<void()> m_onClick;
};

TEST_F(ButtonCtrlTest, ReleasingOutsideCancelsTheClick)
{
    testsupport::FakeClock clock(10000);
    ButtonCtrl* button = Button(">");
    Mouse(button, wxEVT_ENTER_WINDOW);
    Mouse(button, wxEVT_LEFT_DOWN);
    Mouse(button, wxEVT_LEAVE_WINDOW);
    Mouse(button, wxEVT_LEFT_UP);
    EXPECT_EQ(m_clicks, 0);
    EXPECT_FALSE(button->IsPressed() || button->HasCapture());

    Mouse(button, wxEVT_ENTER_WINDOW);
    button->Enable(false);
    Click(button);
    EXPECT_EQ(m_clicks, 0) << "disabled";
    button->Enable(true);
    Click(button);
    EXPECT_EQ(m_clicks, 1);
}

TEST_F(ButtonCtrlTest, ClicksWithinHalfASecondOfTheLastHandlerReturningAreDropped)
{
    // The interval starts when the click handler returns; a dropped click
    // does not start it again.
    testsupport::FakeClock clock(10000);
    ButtonCtrl* button = Button(">");
    m_onClick = [&] { clock.Advance(2000); }; // a handler that takes 2 s
    Mouse(button, wxEVT_ENTER_WINDOW);
    Click(button);
    clock.Advance(500);
    Click(button);
    EXPECT_EQ(m_clicks, 1) << "500 ms after the handler returned";
    clock.Advance(1);
    Click(button);
    EXPECT_EQ(m_clicks, 2);

    // Keyboard activation ignores the interval.
    wxCommandEvent apply;
    button->OnApplyControl(apply);
    button->OnApplyControl(apply);
    EXPECT_EQ(m_clicks, 4);
}

TEST_F(ButtonCtrlTest, EnabledButtonsShowTheHandExceptSpacers)
{
    struct Case { int id; bool enabled; bool hand; };
    const Case cases[] = {{ID_OK, true, true}, {ID_OK, false, false}, {ID_SPACER, true, false}};
    for (const auto& c : cases) {
        ButtonCtrl* button = Button(c.enabled ? ">" : " enable=\"false\">", c.id);
        button->Enable(!c.enabled);
        button->Enable(c.enabled);
        EXPECT_EQ(button->GetCursor().IsOk(), c.hand) << c.id << " enabled " << c.enabled;
        button->Destroy();
    }
}

TEST_F(ButtonCtrlTest, LabelAreaFollowsThePadding)
{
    ButtonCtrl* padded = Button(R"( padding="10,5,10,5"><Label>OK</Label>)");
    EXPECT_EQ(padded->GetLabelArea(), wxRect(10, 5, 80, 20));
    ButtonCtrl* zero = Button(R"( padding="0,0,0,0"><Label>OK</Label>)");
    EXPECT_EQ(zero->GetLabelArea(), wxRect(0, 0, 100, 30)) << "an explicit zero padding is a padding";

    ButtonCtrl* plain = Button("><Label>OK</Label>", ID_OK, wxRect(0, 0, 60, 20));
    EXPECT_EQ(plain->GetLabelArea(), wxRect(2, 2, 56, 16));
    plain->SetSize(100, 30);
    EXPECT_EQ(plain->GetLabelArea(), wxRect(2, 2, 56, 16)) << "a resize does not fit the label again";
    plain->SetControlLabel(L"OK");
    EXPECT_EQ(plain->GetLabelArea(), wxRect(2, 2, 96, 26));

    // Too long for the area: one line ending in "...".
    plain->SetControlLabel(L"A label much too long for a button of one hundred pixels");
    const TString<wchar_t>& fitted = plain->GetControlLabel();
    EXPECT_TRUE(fitted.find(L'\n') == TString<wchar_t>::npos && fitted.ends_with(L"...")) << std::wstring(fitted);
}

TEST_F(ButtonCtrlTest, ImageFollowsDisabledSelectedPressedOverNormal)
{
    const std::string all = "><Enabled>red.png</Enabled><Disabled>grey.png</Disabled><Over>green.png</Over>"
                            "<Pressed>blue.png</Pressed><Selected>yellow.png</Selected>";
    const std::string noPressed = "><Enabled>red.png</Enabled><Over>green.png</Over>";
    const std::string normalOnly = "><Enabled>red.png</Enabled>";
    // state: e(nabled), s(elected), i(nside), p(ressed)
    struct Case { const std::string& images; std::string state; const char* shown; };
    const Case cases[] = {
        {all, "e", "red.png"}, {all, "ei", "green.png"}, {all, "eip", "blue.png"},
        {all, "esi", "yellow.png"}, // selected wins over the pointer
        {all, "si", "grey.png"}, {noPressed, "eip", "green.png"}, {normalOnly, "eip", "red.png"}, {">", "eip", "none"},
    };
    for (const auto& c : cases) {
        ButtonCtrl* button = Button(c.images);
        if (c.state.find('i') != std::string::npos)
            Mouse(button, wxEVT_ENTER_WINDOW);
        if (c.state.find('p') != std::string::npos)
            Mouse(button, wxEVT_LEFT_DOWN);
        button->Select(c.state.find('s') != std::string::npos);
        button->Enable(c.state.find('e') != std::string::npos);
        const wxImage image = Render(wxSize(100, 30), [&](wxDC& dc) { button->DrawCustom(dc); });
        EXPECT_EQ(SwatchAt(image, 50, 15), c.shown) << c.images << " " << c.state;
        if (button->HasCapture())
            button->ReleaseMouse();
        button->Destroy();
    }
}

// Counts whole-window refreshes, which a label does once per fitting.
class CountingLabel : public StaticTextCtrl {
public:
    using StaticTextCtrl::StaticTextCtrl;
    void Refresh(bool erase = true, const wxRect* rect = nullptr) override
    {
        ++refreshes;
        StaticTextCtrl::Refresh(erase, rect);
    }
    int refreshes = 0;
};

class TextCtrlTest : public controltest::SkinnedTest {};

const char* const c_edit = R"(<Control class="EditTextCtrl" bounds="0,0,120,24"/>)";

TEST_F(TextCtrlTest, StaticTextFitsItsLabelOncePerNewText)
{
    auto* label = Build<CountingLabel, StaticTextCtrlDescriptor>(
        R"(<Control class="StaticTextCtrl" bounds="0,0,80,60"><Font ptsize="10"/><Label>Hi</Label></Control>)");
    EXPECT_EQ(label->GetLabelArea(), wxRect(2, 2, 76, 56));
    label->refreshes = 0;
    label->SetControlLabel(L"Hello");
    label->SetControlLabel(L"Hello");
    EXPECT_EQ(label->refreshes, 1);
    // A long text is wrapped into the area; the fitted text is the label.
    label->SetControlLabel(L"This sentence is far too long for one line of the label");
    EXPECT_NE(label->GetControlLabel().find(L'\n'), TString<wchar_t>::npos);
}

TEST_F(TextCtrlTest, ClickOnALabelReachesTheButtonUnderIt)
{
    testsupport::FakeClock clock(10000);
    auto* button = Build<ButtonCtrl, ButtonCtrlDescriptor>(R"(<Control class="ButtonCtrl" bounds="0,0,100,40"/>)");
    auto* label = Build<StaticTextCtrl, StaticTextCtrlDescriptor>(
        R"(<Control class="StaticTextCtrl" bounds="10,10,80,20"><Label>Go</Label></Control>)", button);
    int clicks = 0;
    button->Bind(wxEVT_BUTTON, [&](wxCommandEvent&) { ++clicks; });
    controltest::Mouse(label, wxEVT_ENTER_WINDOW);
    EXPECT_TRUE(button->IsInside());
    EXPECT_FALSE(label->IsInside()) << "the label never tracks the pointer itself";
    controltest::Mouse(label, wxEVT_LEFT_DOWN);
    controltest::Mouse(label, wxEVT_LEFT_UP);
    EXPECT_EQ(clicks, 1);
}

TEST_F(TextCtrlTest, ShowingTheEditBoxEmptiesItAndSaysSo)
{
    auto* edit = Build<EditTextCtrl, EditTextCtrlDescriptor>(c_edit);
    ASSERT_NE(edit->GetTextBox(), nullptr);
    edit->SetControlLabel(L"secret");
    edit->Hide();
    int changes = 0;
    edit->GetTextBox()->Bind(wxEVT_TEXT, [&](wxCommandEvent&) { ++changes; });
    edit->Show();
    EXPECT_EQ(edit->GetControlLabel(), L"");
    EXPECT_EQ(changes, 1) << "a screen following the text sees it emptied";
}

TEST_F(TextCtrlTest, TheNativeBoxLeavesTheSkinVisibleAroundIt)
{
    const std::string margin = R"(<Enabled margin="2,3,5,7">red.png</Enabled>)";
    // An explicit padding wins over the image's margins.
    const std::tuple<std::string, std::string, wxRect> cases[] = {{"", "", wxRect(4, 4, 112, 16)},
                                                                  {"", margin, wxRect(3, 2, 112, 15)},
                                                                  {R"( padding="1,2,3,4")", margin,
                                                                   wxRect(1, 2, 116, 18)}};
    for (const auto& [padding, images, box] : cases) {
        auto descriptor = Describe<EditTextCtrlDescriptor>(R"(<Control class="EditTextCtrl" bounds="0,0,120,24")" +
                                                           padding + ">" + images + "</Control>");
        EXPECT_EQ(EditTextCtrl::TextBoxArea(wxSize(120, 24), *descriptor), box) << padding << images;
    }
}

TEST_F(TextCtrlTest, FirstWeightChangeAppliesEvenToLight)
{
    auto* label = Build<StaticTextCtrl, StaticTextCtrlDescriptor>(
        R"(<Control class="StaticTextCtrl" bounds="0,0,80,20"><Font weight="BOLD"/><Label>Hi</Label></Control>)");
    const auto font = label->GetDescriptor().DynamicCast<StaticTextCtrlDescriptor>()->GetFont();
    label->SetWeight(FontDescriptor::Light);
    EXPECT_EQ(font->GetWeight(), FontDescriptor::Light);
    EXPECT_EQ(font->GetFont().GetWeight(), wxFONTWEIGHT_LIGHT);
}

TEST_F(TextCtrlTest, ReturnBecomesTheEnterEventAndIsNotTyped)
{
    auto* edit = Build<EditTextCtrl, EditTextCtrlDescriptor>(c_edit);
    std::vector<wxEventType> posted;
    for (const wxEventType type :
         {PanelCtrl::EVT_KEYPRESSED_ENTER, PanelCtrl::EVT_KEYDOWN, PanelCtrl::EVT_KEYPRESSED_TAB})
        edit->Bind(wxEventTypeTag<wxCommandEvent>(type), [&](wxCommandEvent& e) {
            EXPECT_EQ(e.GetEventObject(), edit);
            posted.push_back(e.GetEventType());
            if (e.GetEventType() == PanelCtrl::EVT_KEYDOWN) {
                EXPECT_EQ(e.GetExtraLong(), e.GetInt() == WXK_RETURN ? 2 : 0);
            }
        });
    struct Case { int code; bool ctrl; wxEventType posted; bool passedToTheBox; };
    const Case cases[] = {
        {WXK_RETURN, false, PanelCtrl::EVT_KEYPRESSED_ENTER, false},
        {WXK_RETURN, true, PanelCtrl::EVT_KEYDOWN, true},
        {WXK_TAB, false, PanelCtrl::EVT_KEYPRESSED_TAB, false},
        {'x', false, PanelCtrl::EVT_KEYDOWN, true},
    };
    for (const auto& c : cases) {
        posted.clear();
        wxKeyEvent key(wxEVT_CHAR);
        key.m_keyCode = c.code;
        key.SetControlDown(c.ctrl);
        // A key the box does not handle is skipped on to its default processing
        // (the native insertion); one it handles is consumed.
        EXPECT_EQ(!edit->GetTextBox()->GetEventHandler()->ProcessEvent(key), c.passedToTheBox)
            << c.code << " ctrl " << c.ctrl;
        EXPECT_TRUE(testsupport::ProcessEventsUntil([&] { return !posted.empty(); }));
        EXPECT_EQ(posted, std::vector<wxEventType>{c.posted}) << c.code << " ctrl " << c.ctrl;
    }
    EXPECT_EQ(edit->GetControlLabel(), L"");
}

TEST_F(TextCtrlTest, FiltersKeepAllowedCharactersAndMoveTheCaretBack)
{
    auto* edit = Build<EditTextCtrl, EditTextCtrlDescriptor>(c_edit);
    struct Case { bool digits; std::wstring text; long caret; bool changed; std::wstring filtered; long caretAfter; };
    const Case cases[] = {
        {true, L"12a3", 4, true, L"123", 3},
        {true, L"ab1", 1, true, L"1", 0}, // would go below 0
        {false, std::wstring(L"caf\u00e9\tok\u263a!"), 9, true, std::wstring(L"caf\u00e9ok!"), 7},
        {false, L"plain text", 3, false, L"plain text", 3},
        {false, std::wstring(L"\u00ff\u0100 \u001f"), 4, true, std::wstring(L"\u00ff "), 2},
    };
    for (const auto& c : cases) {
        edit->SetControlLabel(c.text);
        edit->SetInsertionPoint(c.caret);
        TString<wchar_t> out = L"stale";
        const bool changed = c.digits ? edit->FilterDigits(out) : edit->FilterAlphaNumeric(out);
        EXPECT_EQ(changed, c.changed) << c.text;
        EXPECT_EQ(out, c.filtered) << c.text;
        EXPECT_EQ(edit->GetControlLabel(), c.filtered) << c.text;
        EXPECT_EQ(edit->GetInsertionPoint(), c.caretAfter) << c.text;
    }
}

} // namespace

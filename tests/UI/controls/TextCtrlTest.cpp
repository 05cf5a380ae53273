#include "ControlTestSupport.h"

#include "controls/ButtonCtrl.h"
#include "controls/EditTextCtrl.h"
#include "controls/MyTextControl.h"
#include "controls/StaticTextCtrl.h"
#include "descriptors/ButtonCtrlDescriptor.h"
#include "descriptors/EditTextCtrlDescriptor.h"
#include "descriptors/StaticTextCtrlDescriptor.h"

using namespace UIKit;

namespace {

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
    const std::tuple<std::string, std::string, wxRect> cases[] = {
        {"", "", wxRect(4, 4, 112, 16)}, {"", margin, wxRect(3, 2, 112, 15)}, {R"( padding="1,2,3,4")", margin, wxRect(1, 2, 116, 18)}};
    for (const auto& [padding, images, box] : cases) {
        auto descriptor = Describe<EditTextCtrlDescriptor>(R"(<Control class="EditTextCtrl" bounds="0,0,120,24")" + padding + ">" +
                                                           images + "</Control>");
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
    for (const wxEventType type : {PanelCtrl::EVT_KEYPRESSED_ENTER, PanelCtrl::EVT_KEYDOWN, PanelCtrl::EVT_KEYPRESSED_TAB})
        edit->Bind(wxEventTypeTag<wxCommandEvent>(type), [&](wxCommandEvent& e) {
            EXPECT_EQ(e.GetEventObject(), edit);
            posted.push_back(e.GetEventType());
            if (e.GetEventType() == PanelCtrl::EVT_KEYDOWN)
                EXPECT_EQ(e.GetExtraLong(), e.GetInt() == WXK_RETURN ? 2 : 0);
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
        EXPECT_EQ(!edit->GetTextBox()->GetEventHandler()->ProcessEvent(key), c.passedToTheBox) << c.code << " ctrl " << c.ctrl;
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

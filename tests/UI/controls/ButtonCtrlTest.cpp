#include "ControlTestSupport.h"

#include "controls/ButtonCtrl.h"
#include "controls/ImageCtrl.h"
#include "descriptors/ButtonCtrlDescriptor.h"
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
    struct Case {
        uint64_t gap;
        int clicks;
    };
    for (const auto& c : {Case{500, 1}, Case{501, 2}}) {
        testsupport::FakeClock clock(10000);
        m_clicks = 0;
        ButtonCtrl* button = Button(">");
        Mouse(button, wxEVT_ENTER_WINDOW);
        Click(button);
        clock.Advance(c.gap);
        Click(button);
        EXPECT_EQ(m_clicks, c.clicks) << c.gap << " ms apart";
        button->Destroy();
    }

    // The interval starts when the click handler returns.
    testsupport::FakeClock clock(10000);
    m_clicks = 0;
    ButtonCtrl* button = Button(">");
    m_onClick = [&] { clock.Advance(2000); }; // a handler that takes 2 s
    Mouse(button, wxEVT_ENTER_WINDOW);
    Click(button);
    clock.Advance(300);
    Click(button);
    EXPECT_EQ(m_clicks, 1) << "300 ms after the handler returned";
    clock.Advance(300);
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
    struct Case {
        int id;
        bool enabled;
        bool hand;
    };
    const Case cases[] = {{ID_OK, true, true}, {ID_OK, false, false}, {ID_SPACER, true, false}, {ID_SPACER, false, false}};
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
    struct State {
        bool enabled;
        bool selected;
        bool inside;
        bool pressed;
    };
    const std::string all = "><Enabled>red.png</Enabled><Disabled>grey.png</Disabled><Over>green.png</Over>"
                            "<Pressed>blue.png</Pressed><Selected>yellow.png</Selected>";
    const std::string noPressed = "><Enabled>red.png</Enabled><Over>green.png</Over>";
    const std::string normalOnly = "><Enabled>red.png</Enabled>";
    struct Case {
        const std::string& images;
        State state;
        const char* shown;
    };
    const Case cases[] = {
        {all, {true, false, false, false}, "red.png"},
        {all, {true, false, true, false}, "green.png"},
        {all, {true, false, true, true}, "blue.png"},
        {all, {true, true, true, false}, "yellow.png"}, // selected wins over the pointer
        {all, {false, true, true, false}, "grey.png"},
        {noPressed, {true, false, true, true}, "green.png"},
        {normalOnly, {true, false, true, true}, "red.png"},
        {">", {true, false, true, true}, "none"},
    };
    for (const auto& c : cases) {
        ButtonCtrl* button = Button(c.images);
        if (c.state.inside)
            Mouse(button, wxEVT_ENTER_WINDOW);
        if (c.state.pressed)
            Mouse(button, wxEVT_LEFT_DOWN);
        button->Select(c.state.selected);
        button->Enable(c.state.enabled);
        const wxImage image = Render(wxSize(100, 30), [&](wxDC& dc) { button->DrawCustom(dc); });
        EXPECT_EQ(SwatchAt(image, 50, 15), c.shown)
            << c.images << " enabled " << c.state.enabled << " selected " << c.state.selected << " inside "
            << c.state.inside << " pressed " << c.state.pressed;
        if (button->HasCapture())
            button->ReleaseMouse();
        button->Destroy();
    }
}

} // namespace

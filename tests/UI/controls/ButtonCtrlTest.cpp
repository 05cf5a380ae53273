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

} // namespace

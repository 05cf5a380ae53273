#include "ControlTestSupport.h"

#include "controls/ButtonCtrl.h"
#include "controls/EditTextCtrl.h"
#include "controls/MonthPickerCtrl.h"
#include "controls/MyTextControl.h"
#include "controls/NumericUpDownCtrl.h"
#include "controls/StaticTextCtrl.h"
#include "descriptors/ButtonCtrlDescriptor.h"
#include "descriptors/EditTextCtrlDescriptor.h"
#include "factory/ControlIds.h"

#include <wx/app.h>

using namespace UIKit;
using Toolkit::DateTime;

namespace {

class PickerUpDownTest : public controltest::SkinnedTest {
protected:
    void SetUp() override
    {
        SkinnedTest::SetUp();
        const char* const months[] = {"January", "February", "March",     "April",   "May",      "June",
                                      "July",    "August",   "September", "October", "November", "December"};
        for (int m = 0; m < 12; ++m)
            m_resources.strings["LB_MONTH_F" + std::to_string(m + 1)] = TString<wchar_t>(wxString(months[m]).ToStdWstring());
    }

    template <class C, class D>
    C* Child(wxWindow* parent, int id, const std::string& cls, const std::string& name)
    {
        return Build<C, D>("<Control class=\"" + cls + "\" name=\"" + name + "\" bounds=\"0,0,40,20\"/>", parent, id);
    }
    // A picker with its label and buttons, counting its change events.
    MonthPickerCtrl* Picker()
    {
        auto* picker = Build<MonthPickerCtrl, PanelCtrlDescriptor>(R"(<Control class="MonthPickerCtrl" bounds="0,0,200,20"/>)");
        Child<StaticTextCtrl, StaticTextCtrlDescriptor>(picker, wxID_ANY, "StaticTextCtrl", "DateTimeLbl");
        Child<ButtonCtrl, ButtonCtrlDescriptor>(picker, ID_UP, "ButtonCtrl", "Up");
        Child<ButtonCtrl, ButtonCtrlDescriptor>(picker, ID_DOWN, "ButtonCtrl", "Down");
        picker->Bind(wxEventTypeTag<wxCommandEvent>(MonthPickerCtrl::EVT_MONTH_CHANGED), [this](wxCommandEvent&) { ++m_changes; });
        return picker;
    }
    NumericUpDownCtrl* UpDown(bool complete = true)
    {
        auto* updown = new NumericUpDownCtrl(m_frame, wxID_ANY, wxRect(0, 0, 100, 20));
        Child<ButtonCtrl, ButtonCtrlDescriptor>(updown, ID_DOWN, "ButtonCtrl", "Down");
        Child<ButtonCtrl, ButtonCtrlDescriptor>(updown, ID_UP, "ButtonCtrl", "Up");
        if (complete)
            m_text = Child<EditTextCtrl, EditTextCtrlDescriptor>(updown, wxID_ANY, "EditTextCtrl", "Value");
        m_loaded = Load(updown, Describe<PanelCtrlDescriptor>(R"(<Control class="NumericUpDownCtrl" bounds="0,0,100,20"/>)"));
        updown->Bind(wxEventTypeTag<wxCommandEvent>(NumericUpDownCtrl::EVT_VALUE_CHANGED), [this](wxCommandEvent&) { ++m_changes; });
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
    static Toolkit::smart_ptr<DateTime> Day(int year, int month, int day) { return Toolkit::make_smart<DateTime>(year, month, day, 0, 0, 0); }

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
        EXPECT_EQ(picker->GetText(), c.text);
        EXPECT_EQ(Changes(), 1);
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
    struct Case { long long minimum, maximum, value; unsigned long long step; int id; long long want; int changes; };
    const Case cases[] = {
        {0, 10, 9, 3, ID_UP, 10, 1},
        {0, 10, 1, 3, ID_DOWN, 0, 1}, // down button disabled at the minimum, checked by the month range
        {0, 10, 5, 0, ID_UP, 6, 1}, // a step of 0 is 1
        {LLONG_MIN, LLONG_MAX, LLONG_MAX - 1, 5, ID_UP, LLONG_MIN + 3, 1},
        {0, LLONG_MAX, LLONG_MAX - 1, 5, ID_UP, 0, 1}, // wrapped below the range, clamped
        {0, 10, 10, 1, ID_UP, 10, 1},
    };
    for (const auto& c : cases) {
        NumericUpDownCtrl* updown = UpDown();
        updown->SetRange(c.minimum, c.maximum);
        updown->SetValue(c.value);
        updown->SetStep(c.step);
        Changes();
        Press(updown, c.id);
        EXPECT_EQ(updown->GetValue(), c.want) << c.value << " step " << c.step;
        EXPECT_EQ(m_text->GetControlLabel(), std::to_wstring(c.want));
        EXPECT_EQ(Enabled(updown, ID_UP), c.want < c.maximum);
        EXPECT_EQ(Changes(), c.changes) << c.value;
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

// The history screen in the connection manager: reached from the home
// screen, its rows sorted by each column both ways, and a filter that
// hides rows and the height they took; an empty history says so.
#include "../host/HostFixture.h"
#include "UserInput.h"

#include "controls/EditTextCtrl.h"
#include "factory/ControlIds.h"
#include "lists/ListCtrl.h"
#include "navigation/ScreenCtrl.h"
#include "util/Util.h"

#include <fstream>

namespace {

class HistoryScreenTest : public hosttest::HostFixture {
protected:
    // The history file is in place before the plug-ins load.
    void SetUp() override
    {
        if (!m_history.empty())
            std::ofstream(m_home.Path() / "history") << m_history;
        HostFixture::SetUp();
        host::StartNavigation();
        ASSERT_TRUE(host::Click(*m_dashboard, UIKit::ID_BROWSE));
    }
    template <class T>
    T* Find(const wchar_t* name) const
    {
        return UIKit::Util::FindControl<T>(m_dashboard->GetCurrentRunningScreen(), name, true);
    }
    void Press(const wchar_t* name) const
    {
        auto* button = Find<UIKit::Control>(name);
        ASSERT_NE(button, nullptr) << "no button";
        wxCommandEvent click(wxEVT_BUTTON, button->GetId());
        click.SetEventObject(button);
        button->GetEventHandler()->ProcessEvent(click);
    }
    // The first letters of the device names of the rows shown, top to bottom.
    std::wstring Shown() const
    {
        std::wstring names;
        unsigned int height = 0;
        for (auto* row : Find<UIKit::ListCtrl>(L"HistoryList")->GetItems())
            if (row->IsShown()) {
                names += row->GetControlLabel()[row->GetControlLabel().rfind(L' ') + 1];
                height += row->GetHeight();
            }
        EXPECT_EQ(height, Find<UIKit::ListCtrl>(L"HistoryList")->GetTotalHeight());
        return names;
    }

    std::string m_history = "2026-03-02 10:00:00\t60\t100\t100\tBq\n"
                            "2026-03-01 10:00:00\t7200\t10\t10\tAq\n"
                            "2026-03-03 10:00:00\t600\t5000000\t1\tCq\n";
};

TEST_F(HistoryScreenTest, SortsByEachColumnBothWaysAndFilters)
{
    ASSERT_NE(Find<UIKit::ListCtrl>(L"HistoryList"), nullptr);
    EXPECT_EQ(Shown(), L"CBA") << "newest first";
    const struct {
        const wchar_t* button;
        const wchar_t* order;
    } presses[] = {
        {L"SortDate", L"ABC"}, {L"SortDuration", L"ACB"}, {L"SortDuration", L"BCA"}, {L"SortVolume", L"CBA"},
    };
    for (const auto& press : presses) {
        Press(press.button);
        EXPECT_EQ(Shown(), press.order) << press.button;
    }
    auto* filter = Find<UIKit::EditTextCtrl>(L"SearchText");
    ASSERT_NE(filter, nullptr);
    const struct {
        const wchar_t* text;
        const wchar_t* shown;
    } filters[] = {{L"03-02", L"B"}, {L"CQ", L"C"}, {L"02:00:00", L"A"}, {L"nothing like it", L""}, {L"", L"CBA"}};
    for (const auto& f : filters) {
        filter->SetControlLabel(f.text); // the box tells of the change as typing does
        EXPECT_EQ(Shown(), f.shown) << f.text;
    }
}

class EmptyHistoryScreenTest : public HistoryScreenTest {
protected:
    EmptyHistoryScreenTest() { m_history.clear(); }
};

TEST_F(EmptyHistoryScreenTest, SaysThereIsNothingYetAndF4ShowsItFromHome)
{
    ASSERT_TRUE(host::Click(*m_dashboard, UIKit::ID_HOME));
    ASSERT_EQ(m_dashboard->GetCurrentRunningScreen()->GetName(), "HomeScreen");
    host::PressKey(*m_dashboard, WXK_F4);
    ASSERT_NE(m_dashboard->GetCurrentRunningScreen(), nullptr);
    EXPECT_EQ(m_dashboard->GetCurrentRunningScreen()->GetName(), "HistoryScreen");
    auto* sentence = Find<UIKit::Control>(L"EmptyText");
    ASSERT_NE(sentence, nullptr);
    EXPECT_TRUE(sentence->IsShown());
    EXPECT_FALSE(Find<UIKit::ListCtrl>(L"HistoryList")->IsShown());
}

} // namespace

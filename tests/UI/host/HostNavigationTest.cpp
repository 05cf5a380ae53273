// The connection manager as it starts: the default pack, the plug-ins the
// build made, the bundle file naming them. Buttons and hot keys move it from
// screen to screen through the pack's event rows, and the usage screen keeps
// the monthly allowance in the preferences.
#include "UI/host/HostFixture.h"
#include "ErrorCapture.h"
#include "TestSupport.h"
#include "UserInput.h"

#include "Preferences/AppPreferences.h"
#include "appearance/Appearance.h"
#include "controls/NumericUpDownCtrl.h"
#include "factory/ControlIds.h"
#include "navigation/ScreenCtrl.h"
#include "navigation/SequenceManager.h"
#include "util/Util.h"

#include <gtest/gtest.h>


namespace {

class HostNavigationTest : public hosttest::HostFixture {
protected:

    // The class of the screen on show, empty when none is.
    TString<wchar_t> screen() const
    {
        auto* shown = m_dashboard->GetCurrentRunningScreen();
        return shown && shown->IsShown() ? shown->GetDescriptor()->GetClass() : TString<wchar_t>();
    }
    bool selected(const wchar_t* navButton) const
    {
        auto* button = UIKit::Util::RecursiveFindControl(m_dashboard, navButton);
        return button && button->IsSelected();
    }

};

TEST_F(HostNavigationTest, ButtonsAndHotKeysMoveThroughThePacksEventRows)
{
    testsupport::ErrorCapture errors;
    host::StartNavigation();
    EXPECT_TRUE(errors.Lines().empty()) << errors.Lines().front();
    // The home row fires at start; with no device the connection area says so.
    EXPECT_TRUE(testsupport::ProcessEventsUntil([&] { return screen() == L"NoDeviceScreen"; }));
    UIKit::ScreenCtrl* home = m_dashboard->GetCurrentRunningScreen();

    struct Step {
        const char* what;
        int id;           // a button to click, or 0
        int key;          // a key to press, or 0
        const wchar_t* screen;
        const wchar_t* navButton;
    } steps[] = {
        {"Usage button (a global row)", UIKit::ID_MAP, 0, L"UsageScreen", L"NavUsage"},
        {"Home button", UIKit::ID_HOME, 0, L"NoDeviceScreen", L"NavHome"},
        {"About button", UIKit::ID_HELP, 0, L"AboutScreen", L"NavAbout"},
        {"Back on the about screen (a row of its own sequence)", UIKit::ID_BACK, 0, L"NoDeviceScreen", L"NavHome"},
        {"the usage plug-in's hot key", 0, WXK_F3, L"UsageScreen", L"NavUsage"},
        {"the home plug-in's hot key", 0, WXK_F2, L"NoDeviceScreen", L"NavHome"},
    };
    for (const auto& step : steps) {
        if (step.id)
            EXPECT_TRUE(host::Click(*m_dashboard, step.id)) << step.what;
        else
            host::PressKey(*m_dashboard, step.key);
        EXPECT_TRUE(testsupport::ProcessEventsUntil([&] { return screen() == step.screen; })) << step.what;
        EXPECT_TRUE(selected(step.navButton)) << step.what;
    }
    EXPECT_EQ(m_dashboard->GetCurrentRunningScreen(), home) << "a screen is built once and shown again";
    int shown = 0;
    for (wxWindow* child : m_dashboard->GetControlPlaceholder()->GetChildren())
        shown += child->IsShown();
    EXPECT_EQ(shown, 1) << "the screens left are hidden";
}

// Labels are read with the descriptions: a language change reads them again
// for the window and the screens built so far, and leaves texts that code
// wrote (the notice of a device gone) to that code.
TEST_F(HostNavigationTest, LanguageChangeRelabelsTheWindowAndTheBuiltScreens)
{
    host::StartNavigation();
    ASSERT_TRUE(testsupport::ProcessEventsUntil([&] { return screen() == L"NoDeviceScreen"; }));
    UIKit::ScreenCtrl* home = m_dashboard->GetCurrentRunningScreen();
    UIKit::Util::SetWindowLabel(home, TString<wchar_t>(L"Notice"), L"written by the screen");
    auto appearance = UIKit::Appearance::Instance();
    appearance->UseCulture(appearance->FindCultureByName(L"fr"));
    m_dashboard->OnCultureChanged();
    auto label = [](wxWindow* root, const wchar_t* name) {
        auto* control = UIKit::Util::RecursiveFindControl(root, name);
        return control ? control->GetControlLabel() : TString<wchar_t>(L"(missing)");
    };
    EXPECT_EQ(label(m_dashboard, L"NavHome"), L"Accueil");
    EXPECT_EQ(label(home, L"Title"), L"Aucun appareil");
    EXPECT_EQ(label(home, L"Notice"), L"written by the screen") << "written by the screen, not relabelled";
    ASSERT_TRUE(host::Click(*m_dashboard, UIKit::ID_MAP));
    EXPECT_EQ(label(m_dashboard, L"NavUsage"), L"Conso");
    EXPECT_EQ(label(m_dashboard->GetCurrentRunningScreen(), L"UsedLabel"), L"Consommé ce mois-ci")
        << "a screen built after the change";
}

TEST_F(HostNavigationTest, UsageScreenKeepsTheAllowanceInThePreferences)
{
    Preferences::AppPreferences::Open("DataUsage")->Set("MonthlyAllowance", TString<wchar_t>(L"4096"));
    host::StartNavigation();
    ASSERT_TRUE(host::Click(*m_dashboard, UIKit::ID_MAP));
    auto* allowance = dynamic_cast<UIKit::NumericUpDownCtrl*>(
        UIKit::Util::RecursiveFindControl(m_dashboard->GetCurrentRunningScreen(), L"Allowance"));
    ASSERT_NE(allowance, nullptr);
    EXPECT_EQ(allowance->GetValue(), 4096);

    allowance->SetValue(1536);
    TString<wchar_t> saved;
    EXPECT_TRUE(testsupport::ProcessEventsUntil([&] {
        Preferences::AppPreferences::Open("DataUsage")->Get("MonthlyAllowance", saved);
        return saved == L"1536";
    })) << "saved: " << saved;
}

} // namespace

// The settings area in the connection manager: reached from the home
// screen, and a language chosen there saved and applied at once, the
// settings shown again in it on the same page.
#include "../host/HostFixture.h"
#include "UserInput.h"

#include "Preferences/AppPreferences.h"
#include "factory/ControlIds.h"
#include "lists/ListItemCtrl.h"
#include "settings/SettingPanel.h"
#include "settings/SettingRootScreen.h"
#include "util/Util.h"

namespace {

class SettingsHostTest : public hosttest::HostFixture {
protected:
    UIKit::SettingRootScreen* Screen() const
    {
        return dynamic_cast<UIKit::SettingRootScreen*>(m_dashboard->GetCurrentRunningScreen());
    }
    void SelectRow(unsigned int index)
    {
        auto* page = Screen() ? Screen()->GetTopPanel() : nullptr;
        auto* row = page ? page->RowOf(index) : nullptr;
        ASSERT_NE(row, nullptr) << "no row " << index;
        wxCommandEvent apply;
        row->OnApplyControl(apply);
    }
    TString<wchar_t> Label(const wchar_t* name) const
    {
        auto* control = UIKit::Util::RecursiveFindControl(Screen()->GetTopPanel(), name);
        return control ? control->GetControlLabel() : L"(missing)";
    }
};

TEST_F(SettingsHostTest, ALanguageChosenInTheSettingsIsSavedAndTheSettingsComeBackInIt)
{
    host::StartNavigation();
    ASSERT_TRUE(host::Click(*m_dashboard, UIKit::ID_SETTINGS));
    ASSERT_NE(Screen(), nullptr);
    EXPECT_EQ(Label(L"TitleLabel"), L"Settings");
    SelectRow(0);
    EXPECT_EQ(Label(L"TitleLabel"), L"Language");
    SelectRow(1);
    EXPECT_TRUE(testsupport::ProcessEventsUntil([&] { return Screen() && Label(L"TitleLabel") == L"Langue"; }))
        << Label(L"TitleLabel");
    EXPECT_EQ(Label(L"Back"), L"Retour") << "a page built from a template read in English";
    TString<wchar_t> saved;
    EXPECT_TRUE(Preferences::AppPreferences::Open("Appearance")->Get("Culture", saved));
    EXPECT_EQ(saved, L"fr");
    ASSERT_TRUE(host::Click(*m_dashboard, UIKit::ID_BACK));
    EXPECT_TRUE(testsupport::ProcessEventsUntil([&] { return Label(L"TitleLabel") == L"Réglages"; }));
}

} // namespace

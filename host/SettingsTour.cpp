#include "SettingsTour.h"

#include "DashboardFrame.h"
#include "UserInput.h"

#include "appearance/Appearance.h"
#include "factory/ControlIds.h"
#include "lists/ListItemCtrl.h"
#include "navigation/ScreenManager.h"
#include "settings/MainSettingsController.h"
#include "settings/SettingPanel.h"
#include "settings/SettingRootScreen.h"

#include <wx/app.h>

#include <memory>

namespace host {
namespace {

// The page on show, once the moves posted before have been made.
UIKit::SettingPanel* topPage()
{
    auto screens = UIKit::ScreenManager::Instance();
    auto* screen = dynamic_cast<UIKit::SettingRootScreen*>(
        screens ? screens->Get(UIKit::MainSettingsController::c_strScreen) : nullptr);
    if (!screen)
        return nullptr;
    wxTheApp->ProcessPendingEvents();
    return screen->GetTopPanel();
}

// Selects the row of the page on show whose item has the label of that
// string key, as Enter on the row would.
void selectRow(const char* key)
{
    UIKit::SettingPanel* page = topPage();
    auto appearance = UIKit::Appearance::Instance();
    if (!page || !page->GetRootSettingItem() || !appearance)
        return;
    const auto& items = page->GetRootSettingItem()->GetItems();
    for (size_t i = 0; i < items.size(); ++i)
        if (auto* row = page->RowOf(unsigned(i)); row && items[i]->GetLabel() == appearance->GetStr(key)) {
            wxCommandEvent apply;
            row->OnApplyControl(apply);
            return;
        }
}

} // namespace

std::vector<TourStep> SettingsTourSteps()
{
    // The tour chooses languages as a user would, which saves the choice:
    // the user's own choice is put back at the end.
    auto saved = std::make_shared<TString<wchar_t>>();
    return {
        {"settings-language",
         [saved](DashboardFrame& f) {
             UIKit::Appearance::Instance()->GetCultureFromUserPreferences(*saved);
             Click(f, UIKit::ID_HOME);
             Click(f, UIKit::ID_SETTINGS);
             selectRow("LB_SETTINGS_LANGUAGE");
             selectRow("LB_LANGUAGE_EN");
         }},
        {"settings", [](DashboardFrame& f) { Click(f, UIKit::ID_BACK); }},
        {"settings-diagnostics", [](DashboardFrame&) { selectRow("LB_SETTINGS_DIAGNOSTICS"); }},
        {"settings-language-fr",
         [](DashboardFrame& f) {
             Click(f, UIKit::ID_BACKHOME);
             selectRow("LB_SETTINGS_LANGUAGE");
             selectRow("LB_LANGUAGE_FR");
         }},
        {"home-after-settings-fr",
         [saved](DashboardFrame& f) {
             Click(f, UIKit::ID_HOME);
             UIKit::Appearance::Instance()->SetCultureToUserPreferences(*saved);
         }},
    };
}

} // namespace host

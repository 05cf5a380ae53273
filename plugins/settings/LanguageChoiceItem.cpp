#include "LanguageChoiceItem.h"

#include "appearance/Appearance.h"
#include "frames/IDashboard.h"
#include "lists/ListItemCtrl.h"
#include "settings/MainSettingsController.h"
#include "settings/SettingRootScreen.h"

#include <wx/app.h>

namespace settingsplugin {
namespace {

bool isCurrent(const TString<wchar_t>& culture)
{
    TString<wchar_t> current;
    if (auto appearance = UIKit::Appearance::Instance())
        appearance->GetCurrentCultureName(current);
    return current == culture;
}

bool settingsOnShow()
{
    auto* dashboard = UIKit::IDashboard::s_pCurrent;
    return dashboard && dynamic_cast<UIKit::SettingRootScreen*>(dashboard->GetCurrentRunningScreen());
}

// When the settings are on show, shows them again (the tree is built again
// in the new language) back on the page listing the item of that name.
void reopenSettingsAt(const TString<wchar_t>& itemName)
{
    auto controller = UIKit::MainSettingsController::Instance();
    if (!controller || !settingsOnShow())
        return;
    controller->DisplaySettingPanel(UIKit::AnimationNone);
    std::vector<UIKit::SettingItem::Ptr> path;
    for (auto item = controller->GetSettingItem(itemName); item && item->GetParentItem(); item = item->GetParentItem())
        path.insert(path.begin(), item);
    for (const auto& item : path)
        controller->PushSettingItem(item);
}

} // namespace

LanguageChoiceItem::LanguageChoiceItem(const TString<wchar_t>& culture, const TString<wchar_t>& label)
    : SettingItem(label, c_strRowTemplate, c_strPageTemplate), m_culture(culture)
{
}

void LanguageChoiceItem::ConfigureListItem(UIKit::ListItemCtrl& row)
{
    TString<wchar_t> label = GetLabel();
    if (isCurrent(m_culture))
        label += L"  \u2713";
    row.SetControlLabel(label);
}

bool LanguageChoiceItem::ManageItemSelection(UIKit::ListItemCtrl&)
{
    auto appearance = UIKit::Appearance::Instance();
    auto culture = appearance ? appearance->FindCultureByName(m_culture) : nullptr;
    if (!culture || isCurrent(m_culture))
        return true;
    appearance->UseCulture(culture);
    appearance->SetCultureToUserPreferences(m_culture);
    // The pages are rebuilt once the click that got here is over: the row
    // being clicked is one of the windows that go.
    wxTheApp->CallAfter([] {
        if (auto* dashboard = UIKit::IDashboard::s_pCurrent)
            dashboard->OnCultureChanged();
        reopenSettingsAt(L"Language");
    });
    return true;
}

} // namespace settingsplugin

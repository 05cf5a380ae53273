#pragma once
// One language on the language page. Selecting it switches the appearance
// to that culture, saves the choice in the preferences and rebuilds what is
// on screen in the new language, the settings included, without a restart.
#include "settings/SettingItem.h"

namespace settingsplugin {

class LanguageChoiceItem : public UIKit::SettingItem {
public:
    LanguageChoiceItem(const TString<wchar_t>& culture, const TString<wchar_t>& label);

    // The current language's row carries a check mark.
    void ConfigureListItem(UIKit::ListItemCtrl& row) override;
    bool ManageItemSelection(UIKit::ListItemCtrl& row) override;

private:
    TString<wchar_t> m_culture;
};

} // namespace settingsplugin

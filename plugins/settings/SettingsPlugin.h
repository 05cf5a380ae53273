#pragma once
// The settings plug-in: the items of the settings area (the language, the
// stream-log switch, the about page), the page class of the about page, and
// the transition that opens the settings from the home screen.
#include "plugins/Plugin.h"

namespace settingsplugin {

class SettingsPlugin : public UIKit::Plugin {
public:
    SettingsPlugin();

    bool Activate() override;
    bool Deactivate() override;
    // Fresh items on every call: the tree is rebuilt after a change of
    // language, with labels in the new language.
    void GetSettingItems(std::map<TString<wchar_t>, Toolkit::smart_ptr<UIKit::SettingItem>>& items) const override;
};

} // namespace settingsplugin

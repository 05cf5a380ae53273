#pragma once
// The stream-log switch as a settings row: selecting it switches the
// communication layer's stream logging, saves the value like the hot key
// does, and the row shows the new state.
#include "settings/SettingItem.h"

namespace settingsplugin {

class StreamLogItem : public UIKit::SettingItem {
public:
    explicit StreamLogItem(const TString<wchar_t>& label);

    void ConfigureListItem(UIKit::ListItemCtrl& row) override;
    bool ManageItemSelection(UIKit::ListItemCtrl& row) override;
};

} // namespace settingsplugin

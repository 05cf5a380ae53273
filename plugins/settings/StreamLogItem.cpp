#include "StreamLogItem.h"

#include "ComCore/ITransport.h"
#include "appearance/Appearance.h"
#include "lists/ListItemCtrl.h"
#include "settings/MainSettingsController.h"
#include "settings/SettingRootScreen.h"

namespace settingsplugin {

StreamLogItem::StreamLogItem(const TString<wchar_t>& label)
    : SettingItem(label, c_strRowTemplate, c_strPageTemplate)
{
}

void StreamLogItem::ConfigureListItem(UIKit::ListItemCtrl& row)
{
    auto appearance = UIKit::Appearance::Instance();
    const char* state = ComCore::ITransport::IsStreamLogsEnabled() ? "LB_SETTING_ON" : "LB_SETTING_OFF";
    TString<wchar_t> label = GetLabel();
    label += L": ";
    if (appearance)
        label += appearance->GetStr(state);
    row.SetControlLabel(label);
}

bool StreamLogItem::ManageItemSelection(UIKit::ListItemCtrl& row)
{
    UIKit::SettingRootScreen::ToggleStreamLogs();
    ConfigureListItem(row);
    row.RefreshUpdate(true);
    return true;
}

} // namespace settingsplugin

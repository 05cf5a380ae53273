#include "settings/SettingsControls.h"

#include "descriptors/ButtonCtrlDescriptor.h"
#include "descriptors/PanelCtrlDescriptor.h"
#include "descriptors/ScreenDescriptor.h"
#include "factory/CtrlFactory.h"
#include "factory/CtrlGenerator.h"
#include "lists/ListItemCtrl.h"
#include "settings/SettingPanel.h"
#include "settings/SettingRootScreen.h"

namespace UIKit {

void RegisterSettingsControls(CtrlFactory& factory)
{
    factory.AddGenerator(L"UIKit::SettingRootScreen", CtrlGenerator<ScreenDescriptor, SettingRootScreen>::Make());
    factory.AddGenerator(L"UIKit::SettingPanel", CtrlGenerator<PanelCtrlDescriptor, SettingPanel>::Make());
    factory.AddGenerator(L"SettingPanel", CtrlGenerator<PanelCtrlDescriptor, SettingPanel>::Make());
    // The rows the settings tree is listed with, a class of their own so a
    // pack can style them apart from other lists.
    factory.AddGenerator(L"UIKit::ListItemCtrl_", CtrlGenerator<ButtonCtrlDescriptor, ListItemCtrl>::Make());
}

} // namespace UIKit

#include "SettingsPlugin.h"

#include "LanguageChoiceItem.h"
#include "SettingsTransition.h"
#include "StreamLogItem.h"

#include "appearance/Appearance.h"
#include "descriptors/PanelCtrlDescriptor.h"
#include "factory/CtrlFactory.h"
#include "factory/CtrlGenerator.h"
#include "navigation/TransitionManager.h"
#include "plugins/PluginParameters.h"
#include "settings/SettingPanel.h"

namespace settingsplugin {
namespace {

const wchar_t* const c_strTransition = L"TSettings";
// The about page: a settings page of its own class, so its template can
// differ from the plain page's.
const wchar_t* const c_strAboutPage = L"SettingsAboutPage";

TString<wchar_t> text(const char* key)
{
    auto appearance = UIKit::Appearance::Instance();
    return appearance ? appearance->GetStr(key) : TString<wchar_t>();
}

UIKit::SettingItem::Ptr languagePage()
{
    UIKit::SettingItem::Ptr page(new UIKit::SettingItem(text("LB_SETTINGS_LANGUAGE"), UIKit::SettingItem::c_strRowTemplate,
                                                        UIKit::SettingItem::c_strPageTemplate));
    for (const auto& [code, key] : {std::pair{L"en", "LB_LANGUAGE_EN"}, std::pair{L"fr", "LB_LANGUAGE_FR"}}) {
        UIKit::SettingItem::Ptr choice(new LanguageChoiceItem(code, text(key)));
        page->AddItem(choice);
        choice->SetParentItem(page);
    }
    return page;
}

} // namespace

SettingsPlugin::SettingsPlugin() : Plugin(L"settings") {}

bool SettingsPlugin::Activate()
{
    if (auto factory = UIKit::CtrlFactory::Instance())
        factory->AddGenerator(c_strAboutPage,
                              UIKit::CtrlGenerator<UIKit::PanelCtrlDescriptor, UIKit::SettingPanel>::Make());
    if (auto transitions = UIKit::TransitionManager::Instance())
        transitions->Add(c_strTransition, SettingsTransition::Make());
    LoadDescriptor();
    return true;
}

bool SettingsPlugin::Deactivate()
{
    if (auto transitions = UIKit::TransitionManager::Instance())
        transitions->Remove(c_strTransition);
    if (auto factory = UIKit::CtrlFactory::Instance())
        factory->RemoveGenerator(c_strAboutPage);
    return true;
}

void SettingsPlugin::GetSettingItems(std::map<TString<wchar_t>, UIKit::SettingItem::Ptr>& items) const
{
    items[L"Language"] = languagePage();
    items[L"StreamLogs"] = UIKit::SettingItem::Ptr(new StreamLogItem(text("LB_SETTINGS_STREAMLOGS")));
    items[L"About"] = UIKit::SettingItem::Ptr(
        new UIKit::SettingItem(text("LB_SETTINGS_ABOUT"), UIKit::SettingItem::c_strRowTemplate, c_strAboutPage));
}

} // namespace settingsplugin

extern "C" __attribute__((visibility("default"))) bool GetPlugin(Toolkit::smart_ptr<UIKit::Plugin>& plugin,
                                                                 UIKit::PluginParameters*)
{
    plugin = Toolkit::smart_ptr<UIKit::Plugin>(new settingsplugin::SettingsPlugin());
    return true;
}

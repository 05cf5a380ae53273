#include "HomePlugin.h"

#include "HomeScreen.h"

#include "descriptors/ScreenDescriptor.h"
#include "factory/ControlIds.h"
#include "factory/CtrlGenerator.h"
#include "navigation/ScreenManager.h"
#include "navigation/SequenceManager.h"
#include "plugins/PluginParameters.h"

namespace homeplugin {
namespace {

const pluginsupport::ScreenRoute c_routes[] = {
    {L"HomeScreen", L"THome", L"Home", L"HomeMain", &UIKit::CtrlGenerator<UIKit::ScreenDescriptor, HomeScreen>::Make},
};

} // namespace

HomePlugin::HomePlugin() : ScreenPlugin(L"home", c_routes) {}

// The hot key brings the home screen forward and flips the connection.
void HomePlugin::Hotkey(const TString<wchar_t>& name)
{
    if (name != L"ToggleConnection")
        return;
    if (auto sequences = UIKit::Singleton<UIKit::SequenceManager>::Instance())
        sequences->DoEvent(UIKit::ID_HOME);
    auto screens = UIKit::Singleton<UIKit::ScreenManager>::Instance();
    if (auto* screen = screens ? dynamic_cast<HomeScreen*>(screens->Get(c_routes[0].screen)) : nullptr)
        screen->SetConnected(!screen->IsConnected());
}

} // namespace homeplugin

extern "C" __attribute__((visibility("default"))) bool GetPlugin(Toolkit::smart_ptr<UIKit::Plugin>& plugin,
                                                                 UIKit::PluginParameters*)
{
    plugin = Toolkit::smart_ptr<UIKit::Plugin>(new homeplugin::HomePlugin());
    return true;
}

#include "DevicePlugin.h"

#include "CodeScreens.h"
#include "FlightModeScreen.h"
#include "SimErrorScreen.h"

#include "descriptors/ScreenDescriptor.h"
#include "factory/CtrlGenerator.h"
#include "plugins/PluginParameters.h"

namespace deviceplugin {
namespace {

template <class Screen>
Toolkit::smart_ptr<UIKit::ICtrlFactoryGenerator> make()
{
    return UIKit::CtrlGenerator<UIKit::ScreenDescriptor, Screen>::Make();
}

// One sequence for every request: leaving it goes back to where the user was.
const pluginsupport::ScreenRoute c_routes[] = {
    {L"PinScreen", L"TPinCode", L"DeviceRequest", L"PinCode", &make<PinScreen>},
    {L"PukScreen", L"TPukCode", L"DeviceRequest", L"PukCode", &make<PukScreen>},
    {L"FlightModeScreen", L"TFlightMode", L"DeviceRequest", L"FlightMode", &make<FlightModeScreen>},
    {L"SimErrorScreen", L"TSimError", L"DeviceRequest", L"SimError", &make<SimErrorScreen>},
};

} // namespace

DevicePlugin::DevicePlugin() : ScreenPlugin(L"device", c_routes) {}

} // namespace deviceplugin

extern "C" __attribute__((visibility("default"))) bool GetPlugin(Toolkit::smart_ptr<UIKit::Plugin>& plugin,
                                                                 UIKit::PluginParameters*)
{
    plugin = Toolkit::smart_ptr<UIKit::Plugin>(new deviceplugin::DevicePlugin());
    return true;
}

#include "HomePlugin.h"

#include "ConnectionScreen.h"
#include "ConnectionWatcher.h"

#include "descriptors/ScreenDescriptor.h"
#include "factory/ControlIds.h"
#include "factory/CtrlGenerator.h"
#include "navigation/SequenceManager.h"
#include "plugins/PluginParameters.h"

namespace homeplugin {
namespace {

using Generator = UIKit::CtrlGenerator<UIKit::ScreenDescriptor, ConnectionScreen>;

// One sequence per view, its state named after it; see ConnectionView.
#define HOME_ROUTE(view) {RouteOf(view).screen, RouteOf(view).transition, RouteOf(view).sequence, RouteOf(view).sequence, &Generator::Make}
const pluginsupport::ScreenRoute c_routes[] = {
    HOME_ROUTE(View::NoDevice),   HOME_ROUTE(View::DeviceInit),    HOME_ROUTE(View::UnknownDevice),
    HOME_ROUTE(View::Ready),      HOME_ROUTE(View::Connecting),    HOME_ROUTE(View::Connected),
    HOME_ROUTE(View::Disconnecting), HOME_ROUTE(View::ConnectionError),
};
#undef HOME_ROUTE

} // namespace

HomePlugin::HomePlugin() : ScreenPlugin(L"home", c_routes) {}

HomePlugin::~HomePlugin() = default;

bool HomePlugin::Activate()
{
    m_watcher = std::make_unique<ConnectionWatcher>();
    return ScreenPlugin::Activate();
}

bool HomePlugin::Deactivate()
{
    m_watcher.reset();
    return ScreenPlugin::Deactivate();
}

// The hot key brings the connection area forward and connects, or
// disconnects (or stops connecting) when a connection is open or opening.
void HomePlugin::Hotkey(const TString<wchar_t>& name)
{
    if (name != L"ToggleConnection" || !m_watcher)
        return;
    if (auto sequences = UIKit::Singleton<UIKit::SequenceManager>::Instance())
        sequences->DoEvent(UIKit::ID_HOME);
    m_watcher->Navigate();
    if (!m_watcher->Disconnect())
        m_watcher->Connect();
}

} // namespace homeplugin

extern "C" __attribute__((visibility("default"))) bool GetPlugin(Toolkit::smart_ptr<UIKit::Plugin>& plugin,
                                                                 UIKit::PluginParameters*)
{
    plugin = Toolkit::smart_ptr<UIKit::Plugin>(new homeplugin::HomePlugin());
    return true;
}

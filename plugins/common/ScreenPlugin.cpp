#include "ScreenPlugin.h"

#include "factory/CtrlFactory.h"
#include "navigation/ScreenTransition.h"
#include "navigation/TransitionManager.h"

namespace pluginsupport {

ScreenPlugin::ScreenPlugin(const TString<wchar_t>& itemFile, std::span<const ScreenRoute> routes)
    : Plugin(itemFile), m_routes(routes)
{
}

bool ScreenPlugin::Activate()
{
    auto factory = UIKit::CtrlFactory::Instance();
    auto transitions = UIKit::Singleton<UIKit::TransitionManager>::Instance();
    for (const auto& route : m_routes) {
        if (factory)
            factory->AddGenerator(route.screen, route.makeGenerator());
        if (transitions)
            transitions->Add(route.transition, UIKit::ScreenTransition::Make(route.sequence, route.state, route.screen));
    }
    LoadDescriptor();
    return true;
}

bool ScreenPlugin::Deactivate()
{
    auto factory = UIKit::CtrlFactory::Instance();
    auto transitions = UIKit::Singleton<UIKit::TransitionManager>::Instance();
    for (const auto& route : m_routes) {
        if (transitions)
            transitions->Remove(route.transition);
        if (factory)
            factory->RemoveGenerator(route.screen);
    }
    return true;
}

} // namespace pluginsupport

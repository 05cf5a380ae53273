#include "ScreenRoutes.h"

#include "factory/CtrlFactory.h"
#include "navigation/ScreenTransition.h"
#include "navigation/TransitionManager.h"

namespace pluginsupport {

void AddRoutes(std::span<const ScreenRoute> routes)
{
    auto factory = UIKit::CtrlFactory::Instance();
    auto transitions = UIKit::Singleton<UIKit::TransitionManager>::Instance();
    for (const auto& route : routes) {
        if (factory)
            factory->AddGenerator(route.screen, route.makeGenerator());
        if (transitions)
            transitions->Add(route.transition, UIKit::ScreenTransition::Make(route.sequence, route.state, route.screen));
    }
}

void RemoveRoutes(std::span<const ScreenRoute> routes)
{
    auto factory = UIKit::CtrlFactory::Instance();
    auto transitions = UIKit::Singleton<UIKit::TransitionManager>::Instance();
    for (const auto& route : routes) {
        if (transitions)
            transitions->Remove(route.transition);
        if (factory)
            factory->RemoveGenerator(route.screen);
    }
}

} // namespace pluginsupport

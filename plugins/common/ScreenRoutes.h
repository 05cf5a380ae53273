#pragma once
// What a plug-in registers for each of its screens: the class that builds
// the screen, and the transition that shows it in its sequence and state.
// Both carry code of the plug-in's library, so the plug-in removes them
// again when it is deactivated, before the library can be unloaded.
#include "factory/ICtrlFactoryGenerator.h"

#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

#include <span>

namespace pluginsupport {

struct ScreenRoute {
    const wchar_t* screen;      // the template's class, also the screen's name
    const wchar_t* transition;
    const wchar_t* sequence;
    const wchar_t* state;
    Toolkit::smart_ptr<UIKit::ICtrlFactoryGenerator> (*makeGenerator)();
};

void AddRoutes(std::span<const ScreenRoute> routes);
void RemoveRoutes(std::span<const ScreenRoute> routes);

} // namespace pluginsupport

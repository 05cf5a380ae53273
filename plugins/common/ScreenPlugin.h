#pragma once
// A plug-in made of screens. Each screen comes with the class that builds
// it and the transition that shows it in its sequence and state; both
// carry code of the plug-in's library, so activation registers them and
// deactivation takes them back, before the library can be unloaded.
#include "plugins/Plugin.h"
#include "factory/ICtrlFactoryGenerator.h"

#include <span>

namespace pluginsupport {

struct ScreenRoute {
    const wchar_t* screen;      // the template's class, also the screen's name
    const wchar_t* transition;
    const wchar_t* sequence;
    const wchar_t* state;
    Toolkit::smart_ptr<UIKit::ICtrlFactoryGenerator> (*makeGenerator)();
};

class ScreenPlugin : public UIKit::Plugin {
public:
    ScreenPlugin(const TString<wchar_t>& itemFile, std::span<const ScreenRoute> routes);

    // Registers the screens' classes and transitions, then reads the
    // plug-in's description.
    bool Activate() override;
    bool Deactivate() override;

private:
    std::span<const ScreenRoute> m_routes;
};

} // namespace pluginsupport

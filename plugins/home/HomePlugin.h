#pragma once
// The home plug-in: contributes the connection screen, the transition that
// shows it, and a hot key that connects or disconnects.
#include "plugins/Plugin.h"

namespace homeplugin {

class HomePlugin : public UIKit::Plugin {
public:
    HomePlugin();

    bool Activate() override;
    bool Deactivate() override;
    void Hotkey(const TString<wchar_t>& name) override;
};

} // namespace homeplugin

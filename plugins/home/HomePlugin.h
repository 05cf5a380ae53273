#pragma once
// The home plug-in: contributes the connection screen, the transition that
// shows it, and a hot key that connects or disconnects.
#include "ScreenPlugin.h"

namespace homeplugin {

class HomePlugin : public pluginsupport::ScreenPlugin {
public:
    HomePlugin();

    void Hotkey(const TString<wchar_t>& name) override;
};

} // namespace homeplugin

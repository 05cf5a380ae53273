#pragma once
// The home plug-in: the connection area (one screen per state of the
// device and its connection, each with the transition that shows it), the
// watcher that follows the selected device and moves between them, and a
// hot key that connects or disconnects.
#include "ScreenPlugin.h"

#include <memory>

namespace homeplugin {

class ConnectionWatcher;

class HomePlugin : public pluginsupport::ScreenPlugin {
public:
    HomePlugin();
    ~HomePlugin() override;

    bool Activate() override;
    bool Deactivate() override;
    void Hotkey(const TString<wchar_t>& name) override;

private:
    std::unique_ptr<ConnectionWatcher> m_watcher;
};

} // namespace homeplugin

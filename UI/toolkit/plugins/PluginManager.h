#pragma once
#include "module/Export.h"
// The registry of the accepted graphical-interface plug-ins. Load, called
// once by the host after the pack and the configuration are loaded, loads
// the plug-ins the configuration's filter list names, activates each one
// and registers those that accept under the key "<100 + n><name>" (n
// counting accepted plug-ins only, so key order is acceptance order), then
// has each load its item tables in key order. Unload deactivates them in
// key order at shutdown; the plug-ins, and with them their libraries, go
// when the manager is released.
//
// While it exists the manager is the hot-key manager's plug-in registry.
// GUI thread only.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "module/Singleton.h"
#include "navigation/IPluginRegistry.h"
#include "plugins/Plugin.h"
#include "plugins/PluginParameters.h"

#include <map>
#include <memory>
#include <vector>

namespace UIKit {

class UIKIT_API PluginManager : public Singleton<PluginManager>, public IPluginRegistry {
public:
    using Registry = std::map<TString<wchar_t>, Toolkit::smart_ptr<Plugin>>;

    PluginManager();
    ~PluginManager() override;
    PluginManager(const PluginManager&) = delete;
    PluginManager& operator=(const PluginManager&) = delete;

    void Load();
    void Unload();
    // Whether a registered plug-in has exactly that name (not its key).
    bool IsPluginLoaded(const TString<wchar_t>& name) const;
    bool CallHotkey(const TString<wchar_t>& pluginKey, const TString<wchar_t>& name) override;
    // Key order is acceptance order.
    const Registry& GetPlugins() const { return m_plugins; }

private:
    // Activates the plug-in; false (logged, the plug-in deactivated) when
    // it refuses or holds no descriptor.
    static bool accept(Plugin& plugin);

    // Handed to every plug-in, which may keep the pointer; declared before
    // the registry so that it outlives the plug-ins.
    std::unique_ptr<PluginParameters> m_parameters;
    Registry m_plugins;
};

} // namespace UIKit

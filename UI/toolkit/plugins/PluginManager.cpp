#include "plugins/PluginManager.h"

#include "Toolkit/ILogger.h"
#include "appearance/Appearance.h"
#include "appearance/ConfDataFile.h"
#include "navigation/HotkeysManager.h"
#include "plugins/PluginLoader.h"

#include <string>

namespace UIKit {

PluginManager::PluginManager()
{
    if (auto hotkeys = HotkeysManager::Instance())
        hotkeys->SetPluginRegistry(this);
}

PluginManager::~PluginManager()
{
    if (auto hotkeys = HotkeysManager::Instance())
        hotkeys->SetPluginRegistry(nullptr);
}

void PluginManager::Load()
{
    auto conf = ConfDataFile::Instance();
    const std::vector<TString<wchar_t>> filters = conf ? conf->GetGipFilterList() : std::vector<TString<wchar_t>>();
    if (filters.empty()) {
        TK_LOG(Toolkit::LogInfo) << "Graphical Interface Plugin filter list is empty! => plugins loading will abort...";
        return;
    }
    if (!m_parameters)
        m_parameters = std::make_unique<PluginParameters>(Appearance::Instance());
    PluginLoader loader(*m_parameters, filters);
    if (loader.Load() == 0)
        return;
    // Rejected plug-ins stay with the loader and go (their libraries with
    // them) when it does.
    int accepted = 0;
    for (const auto& plugin : loader.GetPlugins()) {
        if (!accept(*plugin))
            continue;
        const auto& name = plugin->GetName();
        TK_LOG(Toolkit::LogError) << "Register 'Graphical Interface Plugin' named '" << name << "'.";
        m_plugins[std::to_wstring(100 + ++accepted) + name] = plugin;
    }
    for (const auto& [key, plugin] : m_plugins)
        plugin->LoadItems(key);
}

bool PluginManager::accept(Plugin& plugin)
{
    if (!plugin.Activate()) {
        TK_LOG(Toolkit::LogError) << "The library '" << plugin.GetName() << "' is not a GraphicalInterfacePlugin!";
    } else if (!plugin.GetDescriptor()) {
        TK_LOG(Toolkit::LogError)
            << "This library is a GraphicalInterfacePlugin but have'nt a valid interface descriptor! ITEMFILE["
            << plugin.GetItemFile() << "]";
    } else {
        return true;
    }
    plugin.Deactivate();
    return false;
}

void PluginManager::Unload()
{
    for (const auto& entry : m_plugins)
        entry.second->Deactivate();
}

bool PluginManager::IsPluginLoaded(const TString<wchar_t>& name) const
{
    for (const auto& entry : m_plugins)
        if (entry.second->GetName() == name)
            return true;
    return false;
}

bool PluginManager::CallHotkey(const TString<wchar_t>& pluginKey, const TString<wchar_t>& name)
{
    const auto it = m_plugins.find(pluginKey);
    if (it == m_plugins.end())
        return false;
    it->second->Hotkey(name);
    return true;
}

} // namespace UIKit

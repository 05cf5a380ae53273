#include "plugins/PluginItemTables.h"

#include "descriptors/TemplateManager.h"
#include "factory/CtrlFactory.h"
#include "navigation/EventManager.h"
#include "navigation/ShortcutManager.h"

namespace UIKit {
namespace {

PluginItemTables* g_installed = nullptr;

} // namespace

void PluginItemTables::LoadTemplates(Toolkit::smart_ptr<XMLNode> templates)
{
    auto registry = TemplateManager::Instance();
    auto factory = CtrlFactory::Instance();
    if (registry && factory)
        registry->Load(templates, *factory);
}

void PluginItemTables::LoadEvents(Toolkit::smart_ptr<XMLNode> events)
{
    if (auto manager = EventManager::Instance())
        manager->Load(events);
}

void PluginItemTables::LoadShortcuts(Toolkit::smart_ptr<XMLNode> shortcuts, const TString<wchar_t>& pluginKey)
{
    if (auto manager = ShortcutManager::Instance())
        manager->Load(shortcuts, pluginKey);
}

PluginItemTables& PluginItemTables::Current()
{
    static PluginItemTables managers;
    return g_installed ? *g_installed : managers;
}

PluginItemTables* PluginItemTables::Install(PluginItemTables* tables)
{
    PluginItemTables* previous = g_installed;
    g_installed = tables;
    return previous;
}

} // namespace UIKit

#include "plugins/Plugin.h"

#include "appearance/Appearance.h"
#include "descriptors/BaseCtrlDescriptor.h"
#include "plugins/PluginItemTables.h"
#include "xml/XMLLoader.h"

namespace UIKit {
namespace {

// Parses the item file from the application's pack; problems in it reach
// the error sink under its file name.
bool readItemFile(XMLLoader& loader, const TString<wchar_t>& itemFile)
{
    auto appearance = Appearance::Instance();
    loader.SetResources(appearance.get());
    return loader.LoadFromAppearance(itemFile);
}

} // namespace

Plugin::Plugin(const TString<wchar_t>& itemFile) : m_itemFile(itemFile) {}

Plugin::~Plugin() = default;

bool Plugin::LoadDescriptor()
{
    XMLLoader loader;
    if (readItemFile(loader, m_itemFile))
        m_descriptor = Toolkit::make_smart<PluginDescriptor>(loader.GetRootNode());
    return bool(m_descriptor);
}

bool Plugin::LoadItems(const TString<wchar_t>& key)
{
    XMLLoader loader;
    if (!readItemFile(loader, m_itemFile))
        return false;
    auto& tables = PluginItemTables::Current();
    const auto each = [&loader](const char* section, const auto& load) {
        std::vector<Toolkit::smart_ptr<XMLNode>> nodes;
        loader.GetNodes(nodes, section);
        for (const auto& node : nodes)
            load(node);
    };
    each("Templates", [&](const auto& node) { tables.LoadTemplates(node); });
    each("Events", [&](const auto& node) { tables.LoadEvents(node); });
    each("Shortcuts", [&](const auto& node) { tables.LoadShortcuts(node, key); });
    return true;
}

bool Plugin::Activate()
{
    return true;
}

bool Plugin::Deactivate()
{
    return true;
}

void Plugin::GetSettingItems(std::map<TString<wchar_t>, Toolkit::smart_ptr<SettingItem>>&) const {}

void Plugin::Hotkey(const TString<wchar_t>&) {}

Toolkit::smart_ptr<BaseCtrlDescriptor> Plugin::GetThumbDescriptor() const
{
    return {};
}

Toolkit::smart_ptr<BaseCtrlDescriptor> Plugin::GetToolbarButtonDescriptor() const
{
    return {};
}

const TString<wchar_t>& Plugin::GetName() const
{
    return m_descriptor ? m_descriptor->GetName() : m_itemFile;
}

} // namespace UIKit

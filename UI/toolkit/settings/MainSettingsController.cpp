#include "settings/MainSettingsController.h"

#include "Devices/DeviceManager.h"
#include "Toolkit/ILogger.h"
#include "appearance/Appearance.h"
#include "factory/CtrlFactory.h"
#include "frames/IDashboard.h"
#include "navigation/ScreenManager.h"
#include "plugins/PluginManager.h"
#include "settings/SettingItemEvent.h"
#include "settings/SettingRootScreen.h"
#include "xml/XMLLoader.h"

#include <wx/string.h>

#include <functional>

namespace UIKit {

const wchar_t* const MainSettingsController::c_strScreen = L"UIKit::SettingRootScreen";
const wchar_t* const MainSettingsController::c_strDocument = L"settings";

namespace {

bool isElement(const XMLNode& node, const wchar_t* name)
{
    return wxString(node.GetTagName()).IsSameAs(name, false);
}

SettingItem::Ptr findShared(const SettingItem::Ptr& from, const SettingItem& item)
{
    if (!from || from.get() == &item)
        return from;
    for (const auto& child : from->GetItems())
        if (auto found = findShared(child, item))
            return found;
    return {};
}

// Releases a tree from the bottom up, so no child keeps its parent alive.
void release(const SettingItem::Ptr& item)
{
    if (!item)
        return;
    for (const auto& child : item->GetItems())
        release(child);
    item->RemoveAllItems();
}

} // namespace

void MainSettingsController::LoadSettingItemFromPlugins()
{
    if (m_root)
        return;
    PluginItems items;
    if (auto plugins = PluginManager::Instance())
        for (const auto& [key, plugin] : plugins->GetPlugins())
            plugin->GetSettingItems(items);
    LoadSettingItems(items);
}

void MainSettingsController::LoadSettingItems(const PluginItems& items)
{
    if (m_root)
        return;
    m_culture = currentCulture();
    m_pluginItems = items;
    if (const auto self = Instance(); self.get() == this)
        Devices::DeviceManager::AddListener(self);
    auto factory = CtrlFactory::Instance();
    XMLLoader loader;
    loader.SetResources(factory ? factory->GetResources() : nullptr);
    if (!loader.LoadFromAppearance(c_strDocument)) {
        TK_LOG(Toolkit::LogError) << "no settings document in the pack: the settings stay empty";
        return;
    }
    SettingItem::Ptr root(new SettingItem(loader.ReadLabel("", "label"), SettingItem::c_strRowTemplate,
                                          SettingItem::c_strPageTemplate));
    loadItem(root, loader.GetRootNode());
    Toolkit::MutexLocker lock(m_lock);
    m_root = root;
}

void MainSettingsController::loadItem(const SettingItem::Ptr& parent, const Toolkit::smart_ptr<XMLNode>& element)
{
    std::vector<Toolkit::smart_ptr<XMLNode>> children;
    XMLLoader(element).GetNodes(children, "");
    for (const auto& child : children) {
        const XMLLoader reader(child);
        SettingItem::Ptr item;
        if (isElement(*child, L"Link")) {
            item = SettingItem::Ptr(new SettingItem(reader.ReadLabel("", "label"), SettingItem::c_strRowTemplate,
                                                    SettingItem::c_strPageTemplate));
        } else if (isElement(*child, L"Item")) {
            item = GetSettingItem(reader.ReadString("", "object"));
            const TString<wchar_t> label = reader.ReadLabel("", "label");
            if (item && !label.empty())
                item->SetLabel(label);
        }
        if (!item)
            continue;
        parent->AddItem(item);
        item->SetParentItem(parent);
        loadItem(item, child);
    }
}

void MainSettingsController::UnloadSettingItemFromPlugins()
{
    if (const auto self = Instance(); self.get() == this)
        Devices::DeviceManager::RemoveListener(self);
    release(m_root);
    Toolkit::MutexLocker lock(m_lock);
    m_root = SettingItem::Ptr();
    m_current = SettingItem::Ptr();
    m_pluginItems.clear();
}

SettingItem::Ptr MainSettingsController::GetSettingItem(const TString<wchar_t>& name) const
{
    const auto found = m_pluginItems.find(name);
    return found == m_pluginItems.end() ? SettingItem::Ptr() : found->second;
}

TString<wchar_t> MainSettingsController::currentCulture()
{
    TString<wchar_t> name;
    if (auto appearance = Appearance::Instance())
        appearance->GetCurrentCultureName(name);
    return name;
}

void MainSettingsController::DisplaySettingPanel(Animation animation)
{
    if (m_root && m_culture != currentCulture()) {
        UnloadSettingItemFromPlugins();
        LoadSettingItemFromPlugins();
    }
    auto screens = ScreenManager::Instance();
    if (auto* screen = dynamic_cast<SettingRootScreen*>(screens ? screens->Get(c_strScreen) : nullptr))
        screen->ResetPanels();
    PushSettingItem(m_root);
    if (IDashboard::s_pCurrent)
        IDashboard::s_pCurrent->ShowScreen(c_strScreen, animation, 0, 0);
}

void MainSettingsController::PushSettingItem(SettingItem::Ptr item)
{
    if (!item)
        return;
    PushSettingItemEvent push(item);
    Toolkit::MutexLocker lock(m_lock);
    m_current = item;
    if (m_screen)
        m_screen->ProcessEvent(push);
}

void MainSettingsController::PopSettingItem()
{
    Toolkit::MutexLocker lock(m_lock);
    if (!m_current || !m_current->GetParentItem())
        return;
    m_current = m_current->GetParentItem();
    post(PopSettingItemEvent(m_current));
}

void MainSettingsController::PopToRootSettingItem()
{
    Toolkit::MutexLocker lock(m_lock);
    if (!m_root)
        return;
    m_current = m_root;
    post(PopToRootSettingItemEvent(m_root));
}

void MainSettingsController::ForwardToSettingItem(unsigned int index, ListItemCtrl& row)
{
    if (!m_current || index >= m_current->GetItems().size())
        return;
    // A copy: the child may change the tree while it acts.
    const SettingItem::Ptr child = m_current->GetItems()[index];
    if (!child->ManageItemSelection(row))
        PushSettingItem(child);
}

void MainSettingsController::UpdateSettingItem(unsigned int index, SettingItem::Ptr item)
{
    post(UpdateSettingItemEvent(index, item));
}

void MainSettingsController::UpdateSettingItem(SettingItem& item)
{
    int index = -1;
    SettingItem::Ptr shared;
    {
        Toolkit::MutexLocker lock(m_lock);
        if (!m_current || item.GetParentItem().get() != m_current.get())
            return;
        index = m_current->IndexOf(item);
        if (index >= 0)
            shared = m_current->GetItems()[size_t(index)];
    }
    if (shared)
        UpdateSettingItem(unsigned(index), shared);
}

void MainSettingsController::UpdateCurrentSettingPanel(SettingItem::Ptr item)
{
    post(UpdateSettingPanelEvent(item));
}

void MainSettingsController::UpdateCurrentSettingPanel()
{
    Toolkit::MutexLocker lock(m_lock);
    UpdateCurrentSettingPanel(m_current);
}

void MainSettingsController::UpdateCurrentSettingPanel(SettingItem& item)
{
    UpdateCurrentSettingPanel(shared(item));
}

void MainSettingsController::UpdateRootSettingPanel()
{
    Toolkit::MutexLocker lock(m_lock);
    UpdateCurrentSettingPanel(m_root);
}

void MainSettingsController::AttachScreen(wxEvtHandler* screen)
{
    Toolkit::MutexLocker lock(m_lock);
    m_screen = screen;
}

void MainSettingsController::DetachScreen(wxEvtHandler* screen)
{
    Toolkit::MutexLocker lock(m_lock);
    if (m_screen == screen)
        m_screen = nullptr;
}

void MainSettingsController::post(const wxEvent& event)
{
    Toolkit::MutexLocker lock(m_lock);
    if (m_screen)
        m_screen->AddPendingEvent(event);
}

SettingItem::Ptr MainSettingsController::shared(SettingItem& item) const
{
    Toolkit::MutexLocker lock(m_lock);
    if (m_current.get() == &item)
        return m_current;
    return findShared(m_root, item);
}

} // namespace UIKit

#pragma once
#include "module/Export.h"
// The settings tree and the page on display. The tree's shape comes from
// the pack's "settings" document; its named items from the plug-ins. The
// controller moves through the tree (push, pop, back to the root) and tells
// the settings screen with events. The screen attaches itself while it
// exists; without it the tree is walked all the same and nothing is sent.
// Device changes refresh the page on display.
//
// Navigation belongs to the GUI thread; updates may come from any thread,
// since they only post events.
#include "Devices/DeviceEvent.h"
#include "Toolkit/Mutex.h"
#include "frames/Animation.h"
#include "module/Singleton.h"
#include "settings/SettingItem.h"

#include <map>

class wxEvent;
class wxEvtHandler;

namespace UIKit {

class ListItemCtrl;
class XMLNode;

class UIKIT_API MainSettingsController : public Singleton<MainSettingsController>, public Devices::DeviceEvent {
public:
    using PluginItems = std::map<TString<wchar_t>, SettingItem::Ptr>;

    static const wchar_t* const c_strScreen;
    static const wchar_t* const c_strDocument;

    // Collects the plug-ins' items and builds the tree with them; nothing
    // when a tree exists.
    void LoadSettingItemFromPlugins();
    // Listens to the devices and builds the tree from the settings document,
    // placing the named items where it names them; nothing when a tree
    // exists.
    void LoadSettingItems(const PluginItems& items);
    // Stops listening to the devices and releases the tree and the plug-in
    // items, so a later load builds them afresh (after a change of language,
    // for instance).
    void UnloadSettingItemFromPlugins();
    // The plug-in item of exactly that name, or null.
    SettingItem::Ptr GetSettingItem(const TString<wchar_t>& name) const;

    // Shows the settings screen on its root page; a tree built in another
    // language than the current one is built again first.
    void DisplaySettingPanel(Animation animation);
    void PushSettingItem(SettingItem::Ptr item);
    void PopSettingItem();
    void PopToRootSettingItem();
    void BackToPreviousSettingItem() { PopSettingItem(); }
    void BackToRootSettingItem() { PopToRootSettingItem(); }
    // The row of the current page's child at `index` was selected: the
    // child acts, or its page is pushed.
    void ForwardToSettingItem(unsigned int index, ListItemCtrl& row);

    void UpdateSettingItem(unsigned int index, SettingItem::Ptr item);
    // Refreshes the item's row when it is on the page on display.
    void UpdateSettingItem(SettingItem& item);
    void UpdateCurrentSettingPanel(SettingItem::Ptr item);
    void UpdateCurrentSettingPanel();
    void UpdateCurrentSettingPanel(SettingItem& item);
    void UpdateRootSettingPanel();

    void OnDeviceUpdated(Devices::Device&) override { UpdateCurrentSettingPanel(); }
    void OnDeviceInformationUpdated(Devices::Device&) override { UpdateCurrentSettingPanel(); }

    // The settings screen, while it exists, receives the events.
    void AttachScreen(wxEvtHandler* screen);
    void DetachScreen(wxEvtHandler* screen);

    const SettingItem::Ptr& GetRootItem() const { return m_root; }
    const SettingItem::Ptr& GetCurrentItem() const { return m_current; }

private:
    static TString<wchar_t> currentCulture();
    // Appends the items the element's children describe to `parent`.
    void loadItem(const SettingItem::Ptr& parent, const Toolkit::smart_ptr<XMLNode>& element);
    // Queues the event for the attached screen; nothing without one.
    void post(const wxEvent& event);
    // The item relates to the tree; its shared pointer, found from the root.
    SettingItem::Ptr shared(SettingItem& item) const;

    // Guards the current item, the root and the screen, which other threads
    // read to post updates; the tree below the root is built and changed on
    // the GUI thread only.
    mutable Toolkit::Mutex m_lock;
    SettingItem::Ptr m_root;
    SettingItem::Ptr m_current;
    PluginItems m_pluginItems;
    wxEvtHandler* m_screen = nullptr;
    // The language the tree's labels were read in.
    TString<wchar_t> m_culture;
};

} // namespace UIKit

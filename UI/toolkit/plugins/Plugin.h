#pragma once
#include "module/Export.h"
// The base of every graphical-interface plug-in. A plug-in library makes
// one (see PluginLoader); the plug-in manager activates it, registers it
// under a key and has it load the tables of its item file, an XML document
// of the appearance pack. Plug-in objects are always owned and destroyed by
// the library's smart pointers, never by the plug-in library itself.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "plugins/PluginDescriptor.h"

#include <map>

namespace UIKit {

class BaseCtrlDescriptor;
class SettingItem;

class UIKIT_API Plugin {
public:
    explicit Plugin(const TString<wchar_t>& itemFile);

    // Reads the item file and keeps the descriptor of its root element;
    // whether a descriptor is now held (an unreadable file keeps the old one).
    virtual bool LoadDescriptor();
    // Reads the item file again and hands its "Templates", "Events" and
    // "Shortcuts" elements, in that order, to the tables (PluginItemTables),
    // the shortcuts with the plug-in's registry key; false, registering
    // nothing, when the file cannot be read.
    virtual bool LoadItems(const TString<wchar_t>& key);
    virtual ~Plugin();
    // False when the library is no graphical-interface plug-in. A plug-in
    // that returns true has loaded its descriptor by then.
    virtual bool Activate();
    virtual bool Deactivate();
    // Adds the plug-in's setting items; the base adds none.
    virtual void GetSettingItems(std::map<TString<wchar_t>, Toolkit::smart_ptr<SettingItem>>& items) const;
    // One of the plug-in's hot keys was pressed; name is the action its
    // shortcut row declared. The base does nothing.
    virtual void Hotkey(const TString<wchar_t>& name);
    // What the host shows for the plug-in as a thumbnail and as a toolbar
    // button; the base describes neither.
    virtual Toolkit::smart_ptr<BaseCtrlDescriptor> GetThumbDescriptor() const;
    virtual Toolkit::smart_ptr<BaseCtrlDescriptor> GetToolbarButtonDescriptor() const;

    const Toolkit::smart_ptr<PluginDescriptor>& GetDescriptor() const { return m_descriptor; }
    const TString<wchar_t>& GetItemFile() const { return m_itemFile; }
    // The descriptor's name, or the item file's name without a descriptor.
    const TString<wchar_t>& GetName() const;

private:
    Toolkit::smart_ptr<PluginDescriptor> m_descriptor;
    TString<wchar_t> m_itemFile;
};

} // namespace UIKit

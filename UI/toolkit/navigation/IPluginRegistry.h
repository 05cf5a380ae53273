#pragma once
#include "module/Export.h"
// What the hot-key dispatch needs of the plug-in registry. The registry sits
// above navigation (plug-ins load event and shortcut tables), so the hot-key
// manager reaches it through this interface, which the plug-in manager
// implements and hands to the hot-key manager while it exists.
#include "Toolkit/TString.h"

namespace UIKit {

class UIKIT_API IPluginRegistry {
public:
    virtual ~IPluginRegistry() = default;

    // Calls Hotkey(name) on the registered plug-in whose registry key equals
    // pluginKey; false when no registered plug-in has that key.
    virtual bool CallHotkey(const TString<wchar_t>& pluginKey, const TString<wchar_t>& name) = 0;
};

} // namespace UIKit

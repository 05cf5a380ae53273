#pragma once
#include "module/Export.h"
// The hot keys the plug-ins declared, in registration order (the same key
// may be bound more than once), and their dispatch to the plug-in that
// declared each. The plug-in registry is handed in while it exists; without
// it nothing fires. GUI thread only.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "module/Singleton.h"
#include "navigation/HotKeyEntry.h"
#include "navigation/IPluginRegistry.h"

#include <vector>

namespace UIKit {

class UIKIT_API HotkeysManager : public Singleton<HotkeysManager> {
public:
    // The registry that Dispatch calls into; null clears it.
    void SetPluginRegistry(IPluginRegistry* registry) { m_registry = registry; }

    // Appends an entry when the three texts are non-empty and the key
    // number is at least 1; does nothing otherwise.
    void Add(const TString<wchar_t>& pluginKey, const TString<wchar_t>& sequence, const TString<wchar_t>& name,
             const int& keyNumber);
    // Whether an entry binds exactly this key, sequence and name.
    bool IsHotkey(const int& keyNumber, const TString<wchar_t>& sequence, const TString<wchar_t>& name) const;
    // Fires every entry bound to the key, in registration order; the name
    // and the result are those of the last one fired (empty and false when
    // none is bound).
    bool Find(const int& keyNumber, TString<wchar_t>& name);
    // Calls Hotkey(name) on the plug-in registered under the key; false
    // when there is no such plug-in or no registry.
    bool Dispatch(const TString<wchar_t>& pluginKey, const TString<wchar_t>& name);

    const std::vector<Toolkit::smart_ptr<HotKeyEntry>>& GetEntries() const { return m_entries; }

private:
    std::vector<Toolkit::smart_ptr<HotKeyEntry>> m_entries;
    IPluginRegistry* m_registry = nullptr;
};

} // namespace UIKit

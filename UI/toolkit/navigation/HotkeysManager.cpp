#include "navigation/HotkeysManager.h"

namespace UIKit {

void HotkeysManager::Add(const TString<wchar_t>& pluginKey, const TString<wchar_t>& sequence,
                         const TString<wchar_t>& name, const int& keyNumber)
{
    if (pluginKey.empty() || sequence.empty() || name.empty() || keyNumber < 1)
        return;
    m_entries.push_back(Toolkit::make_smart<HotKeyEntry>(pluginKey, sequence, name, keyNumber));
}

bool HotkeysManager::IsHotkey(const int& keyNumber, const TString<wchar_t>& sequence,
                              const TString<wchar_t>& name) const
{
    for (const auto& entry : m_entries)
        if (entry->GetKeyNumber() == keyNumber && entry->GetSequence() == sequence && entry->GetName() == name)
            return true;
    return false;
}

bool HotkeysManager::Find(const int& keyNumber, TString<wchar_t>& name)
{
    name.clear();
    bool fired = false;
    // A copy: a plug-in's Hotkey may reach this manager again.
    const auto entries = m_entries;
    for (const auto& entry : entries) {
        if (entry->GetKeyNumber() != keyNumber)
            continue;
        fired = Dispatch(entry->GetPluginKey(), entry->GetName());
        name = entry->GetName();
    }
    return fired;
}

bool HotkeysManager::Dispatch(const TString<wchar_t>& pluginKey, const TString<wchar_t>& name)
{
    return m_registry && m_registry->CallHotkey(pluginKey, name);
}

} // namespace UIKit

#include "navigation/ShortcutManager.h"

#include "navigation/HotkeysManager.h"

namespace UIKit {

void ShortcutManager::Add(const TString<wchar_t>& sequence, Toolkit::smart_ptr<EventDescriptor> row,
                          const TString<wchar_t>& pluginKey)
{
    EventTable::Add(sequence, row);
    if (row->hotkey.empty() || row->sequence.empty() || row->transition.empty())
        return;
    if (const auto hotkeys = HotkeysManager::Instance())
        hotkeys->Add(pluginKey, row->sequence, row->transition, HotKeyEntry::ParseKeyNumber(row->hotkey));
}

} // namespace UIKit

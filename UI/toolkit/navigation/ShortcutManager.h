#pragma once
#include "module/Export.h"
// The shortcut tables of the plug-ins, indexed like the event tables, and
// the hot keys their rows declare. A row that names a key registers it with
// the hot-key manager for the plug-in that loaded the row. Filled at
// start-up, read-only afterwards; GUI thread only.
#include "module/Singleton.h"
#include "navigation/EventTable.h"
#include "navigation/EventTableReader.h"

namespace UIKit {

class UIKIT_API ShortcutManager : public Singleton<ShortcutManager>, public EventTable {
public:
    using ShortcutDescriptors = EventTable::Rows;
    using SequenceStateShortcuts = EventTable::StateRows;

    // Adds the rows of one "Shortcuts" element and registers their hot keys
    // under the plug-in's registry key.
    void Load(Toolkit::smart_ptr<XMLNode> shortcutsElement, const TString<wchar_t>& pluginKey)
    {
        const auto table = EventTableReader::Read(shortcutsElement, "Shortcut");
        for (const auto& row : table.rows)
            Add(table.sequence, row, pluginKey);
    }

    // Adds one row; when its hot key, sequence and transition are all given,
    // the hot key is registered (a key number below 1 registers nothing).
    void Add(const TString<wchar_t>& sequence, Toolkit::smart_ptr<EventDescriptor> row,
             const TString<wchar_t>& pluginKey);
};

} // namespace UIKit

#pragma once
#include "module/Export.h"
// The event tables: for each source sequence and state, which ids are
// handled and which target sequence and transition they lead to. The names
// "*" and "*" form the global table. Filled from the "Events" elements of
// plug-in item files at start-up, read-only afterwards; GUI thread only.
#include "module/Singleton.h"
#include "navigation/EventTable.h"
#include "navigation/EventTableReader.h"

namespace UIKit {

class UIKIT_API EventManager : public Singleton<EventManager>, public EventTable {
public:
    using EventDescriptors = EventTable::Rows;
    using SequenceStateEvents = EventTable::StateRows;

    // Adds the rows of one "Events" element; elements naming the same
    // sequence, from one plug-in or several, add to one table.
    void Load(Toolkit::smart_ptr<XMLNode> eventsElement)
    {
        const auto table = EventTableReader::Read(eventsElement, "Event");
        for (const auto& row : table.rows)
            Add(table.sequence, row);
    }
};

} // namespace UIKit

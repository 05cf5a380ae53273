#pragma once
#include "module/Export.h"
// Reads one table element of a plug-in item file ("Events" with its "Event"
// rows, "Shortcuts" with its "Shortcut" rows): the element's "sequence" is
// the source sequence of every row. Nothing is validated here; a row naming
// an unknown sequence, state or transition fails when it is used.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "navigation/EventTable.h"

namespace UIKit {

class XMLNode;

struct UIKIT_API EventTableRows {
    TString<wchar_t> sequence;
    EventTable::Rows rows; // in document order
};

class UIKIT_API EventTableReader {
public:
    static EventTableRows Read(Toolkit::smart_ptr<XMLNode> element, const TString<char>& rowName);
};

} // namespace UIKit

#pragma once
#include "module/Export.h"
// Rows of a navigation table indexed by source sequence, then source state,
// each list in load order. Rows are only ever appended: a later row with the
// same state and id is used only when the earlier one does not apply. Keys
// are exact (no case folding, no trimming). GUI thread only.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "descriptors/EventDescriptor.h"

#include <map>
#include <vector>

namespace UIKit {

class UIKIT_API EventTable {
public:
    using Rows = std::vector<Toolkit::smart_ptr<EventDescriptor>>;
    using StateRows = std::map<TString<wchar_t>, Toolkit::smart_ptr<Rows>>;

    // Appends the row to the list of (sequence, the row's own state).
    void Add(const TString<wchar_t>& sequence, Toolkit::smart_ptr<EventDescriptor> row);
    // The rows for the sequence and state, or null.
    Toolkit::smart_ptr<Rows> Get(const TString<wchar_t>& sequence, const TString<wchar_t>& state) const;
    // The first of those rows with the id, or null.
    Toolkit::smart_ptr<EventDescriptor> Get(const TString<wchar_t>& sequence, const TString<wchar_t>& state,
                                            int id) const;

private:
    std::map<TString<wchar_t>, Toolkit::smart_ptr<StateRows>> m_sequences;
};

} // namespace UIKit

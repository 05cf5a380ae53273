#include "navigation/EventTable.h"

namespace UIKit {

void EventTable::Add(const TString<wchar_t>& sequence, Toolkit::smart_ptr<EventDescriptor> row)
{
    auto& states = m_sequences[sequence];
    if (!states)
        states = Toolkit::make_smart<StateRows>();
    auto& rows = (*states)[row->state];
    if (!rows)
        rows = Toolkit::make_smart<Rows>();
    rows->push_back(std::move(row));
}

Toolkit::smart_ptr<EventTable::Rows> EventTable::Get(const TString<wchar_t>& sequence,
                                                     const TString<wchar_t>& state) const
{
    const auto states = m_sequences.find(sequence);
    if (states == m_sequences.end())
        return {};
    const auto rows = states->second->find(state);
    return rows == states->second->end() ? Toolkit::smart_ptr<Rows>() : rows->second;
}

Toolkit::smart_ptr<EventDescriptor> EventTable::Get(const TString<wchar_t>& sequence, const TString<wchar_t>& state,
                                                    int id) const
{
    if (const auto rows = Get(sequence, state))
        for (const auto& row : *rows)
            if (row->id == id)
                return row;
    return {};
}

} // namespace UIKit

#pragma once
// The history as the list's rows: one row per session, labelled with its
// date and device, its duration and data volume as the detail line. It is
// also the list's delegate, which orders the rows by the column chosen, in
// the direction chosen.
#include "ConnectionHistory.h"

#include "lists/ListCtrlDataSource.h"
#include "lists/ListCtrlDelegate.h"

#include <functional>

namespace historyplugin {

class HistoryRows : public UIKit::ListCtrlDataSource, public UIKit::ListCtrlDelegate {
public:
    enum Column { ByDate, ByDuration, ByVolume };

    // The history is asked for each time, as the one in use may be replaced.
    using Source = std::function<const ConnectionHistory&()>;

    HistoryRows(const TString<wchar_t>& rowTemplate, Source history);

    // The same column again flips the direction; another one starts with
    // the largest (or newest) first.
    void SortBy(Column column);
    Column GetColumn() const { return m_column; }
    bool IsAscending() const { return m_ascending; }

    unsigned int getRowCount() override;
    void decorateItemAtRowIndex(unsigned int& row, UIKit::Control& control) override;
    bool shouldSortAtIndex(unsigned int& from, bool& ascending) override;

private:
    // Orders by the column, then by start and row so that equal values keep
    // one order whatever the sort algorithm does with ties.
    TString<wchar_t> sortKey(const HistoryEntry& entry, unsigned int row) const;

    const std::vector<HistoryEntry>& entries() const { return m_history().Entries(); }

    Source m_history;
    Column m_column = ByDate;
    bool m_ascending = false;
};

} // namespace historyplugin

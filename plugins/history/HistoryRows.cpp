#include "HistoryRows.h"

#include "lists/LabeledListItemCtrl.h"
#include "util/Util.h"

#include <cstdio>

namespace historyplugin {
namespace {

// Numbers as text that sorts like the numbers.
TString<wchar_t> padded(uint64_t value)
{
    wchar_t text[24];
    std::swprintf(text, 24, L"%020llu", static_cast<unsigned long long>(value));
    return text;
}

} // namespace

HistoryRows::HistoryRows(const TString<wchar_t>& rowTemplate, Source history)
    : ListCtrlDataSource(rowTemplate), m_history(std::move(history))
{
}

void HistoryRows::SortBy(Column column)
{
    m_ascending = column == m_column ? !m_ascending : false;
    m_column = column;
}

unsigned int HistoryRows::getRowCount()
{
    return unsigned(entries().size());
}

void HistoryRows::decorateItemAtRowIndex(unsigned int& row, UIKit::Control& control)
{
    auto* item = dynamic_cast<UIKit::ListItemCtrl*>(&control);
    if (!item || row >= entries().size())
        return;
    const HistoryEntry& entry = entries()[row];
    TString<wchar_t> duration, volume;
    UIKit::Util::FormatDuration(duration, entry.durationSeconds * 1000);
    UIKit::Util::FormatDataVolume(volume, entry.Volume());
    const TString<wchar_t> label = entry.start.substr(0, 16) + L"  " + entry.device;
    const TString<wchar_t> detail = duration + L"  \u00b7  " + volume;
    item->SetControlLabel(label);
    if (auto* labeled = dynamic_cast<UIKit::LabeledListItemCtrl*>(item))
        labeled->SetDetailLabel(detail);
    // The filter matches what the user reads on the row, whatever the case.
    item->SetFilterString(UIKit::ListItemCtrl::LowerSingleByte(label + L" " + detail));
    item->SetSortString(sortKey(entry, row));
}

bool HistoryRows::shouldSortAtIndex(unsigned int& from, bool& ascending)
{
    from = 0;
    ascending = m_ascending;
    return true;
}

TString<wchar_t> HistoryRows::sortKey(const HistoryEntry& entry, unsigned int row) const
{
    const TString<wchar_t> tie = entry.start + L"|" + padded(row);
    switch (m_column) {
    case ByDuration:
        return padded(entry.durationSeconds) + L"|" + tie;
    case ByVolume:
        return padded(entry.Volume()) + L"|" + tie;
    case ByDate:
        break;
    }
    return tie;
}

} // namespace historyplugin

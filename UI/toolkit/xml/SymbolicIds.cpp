#include "xml/SymbolicIds.h"

#include <algorithm>
#include <array>
#include <utility>

namespace UIKit {
namespace {

using Row = std::pair<std::string_view, int>;

// Sorted by name at compile time so a lookup is a binary search with no
// allocation.
constexpr auto sortedTable()
{
#define UIKIT_CONTROL_ID(name, value) Row{#name, name},
#define UIKIT_PLUGIN_ID(name, value) Row{#name, name},
    std::array table{
#include "xml/SymbolicIds.def"
    };
#undef UIKIT_CONTROL_ID
#undef UIKIT_PLUGIN_ID
    std::sort(table.begin(), table.end());
    return table;
}

constexpr auto kTable = sortedTable();

constexpr bool namesAreUnique()
{
    for (size_t i = 1; i < kTable.size(); ++i)
        if (kTable[i - 1].first == kTable[i].first)
            return false;
    return true;
}
static_assert(namesAreUnique(), "a symbolic id name is listed twice");

} // namespace

int LookupSymbolicId(std::string_view name)
{
    const auto it = std::lower_bound(kTable.begin(), kTable.end(), name,
                                     [](const Row& row, std::string_view key) { return row.first < key; });
    return (it != kTable.end() && it->first == name) ? it->second : -1;
}

std::string_view SymbolicIdName(int id)
{
    for (const auto& row : kTable)
        if (row.second == id)
            return row.first;
    return {};
}

} // namespace UIKit

#include "module/SingletonTable.h"

#include <algorithm>

namespace UIKit {
namespace {

std::vector<std::string> names(const std::vector<SingletonTable::Row>& rows)
{
    std::vector<std::string> out;
    for (const auto& row : rows)
        out.push_back(row.name);
    return out;
}

} // namespace

SingletonTable::SingletonTable(std::vector<Row> rows) : m_byCreation(rows), m_byRelease(std::move(rows))
{
    std::stable_sort(m_byCreation.begin(), m_byCreation.end(),
                     [](const Row& a, const Row& b) { return a.creationRank < b.creationRank; });
    std::stable_sort(m_byRelease.begin(), m_byRelease.end(),
                     [](const Row& a, const Row& b) { return a.releaseRank < b.releaseRank; });
}

void SingletonTable::CreateAll() const
{
    // A constructor that throws leaves the managers made before in place.
    for (const auto& row : m_byCreation)
        row.create();
}

void SingletonTable::ReleaseAll() const
{
    for (const auto& row : m_byRelease)
        row.release();
}

std::vector<std::string> SingletonTable::CreationOrder() const { return names(m_byCreation); }
std::vector<std::string> SingletonTable::ReleaseOrder() const { return names(m_byRelease); }

} // namespace UIKit

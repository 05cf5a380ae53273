#include "lists/IDataSource.h"

#include "descriptors/TemplateManager.h"

#include <algorithm>

namespace UIKit {

IDataSource::IDataSource(const TString<wchar_t>& templateName)
{
    if (templateName.empty())
        return;
    // A counted copy keeps the registry alive while it is asked.
    if (Toolkit::smart_ptr<TemplateManager> templates = TemplateManager::Instance(); !templates.IsNull())
        m_itemTemplate = templates->Get(templateName);
}

unsigned int IDataSource::getSelectedRowCount()
{
    Toolkit::MutexLocker lock(m_lock);
    return static_cast<unsigned int>(m_selectedRows.size());
}

void IDataSource::doSelectedIndex(unsigned int row)
{
    Toolkit::MutexLocker lock(m_lock);
    if (std::find(m_selectedRows.begin(), m_selectedRows.end(), row) == m_selectedRows.end())
        m_selectedRows.push_back(row);
}

void IDataSource::doDeselectedIndex(unsigned int row)
{
    Toolkit::MutexLocker lock(m_lock);
    const auto found = std::find(m_selectedRows.begin(), m_selectedRows.end(), row);
    if (found != m_selectedRows.end())
        m_selectedRows.erase(found);
}

void IDataSource::doDeselectedAll()
{
    Toolkit::MutexLocker lock(m_lock);
    m_selectedRows.clear();
}

std::vector<unsigned int> IDataSource::GetSelectedRows()
{
    Toolkit::MutexLocker lock(m_lock);
    return m_selectedRows;
}

} // namespace UIKit

#include "settings/SettingItem.h"

#include "lists/ListItemCtrl.h"

namespace UIKit {

const wchar_t* const SettingItem::c_strRowTemplate = L"UIKit::ListItemCtrl_";
const wchar_t* const SettingItem::c_strPageTemplate = L"UIKit::SettingPanel";

SettingItem::SettingItem(const TString<wchar_t>& label, const TString<wchar_t>& rowTemplate,
                         const TString<wchar_t>& pageTemplate)
    : m_label(label), m_rowTemplate(rowTemplate), m_pageTemplate(pageTemplate)
{
}

SettingItem::~SettingItem() = default;

void SettingItem::AddItem(Ptr item)
{
    if (item)
        m_items.push_back(item);
}

void SettingItem::SetParentItem(Ptr parent)
{
    m_parent = parent;
}

void SettingItem::RemoveAllItems()
{
    for (const auto& child : m_items)
        if (child->GetParentItem().get() == this)
            child->SetParentItem(Ptr());
    m_items.clear();
}

void SettingItem::ConfigureListItem(ListItemCtrl& row)
{
    row.SetControlLabel(m_label);
    if (!m_items.empty())
        row.SetIndicator(static_cast<ListItemCtrl::Indicator>(1));
}

bool SettingItem::ManageItemSelection(ListItemCtrl&)
{
    if (!m_items.empty())
        return false;
    return m_pageTemplate == c_strPageTemplate;
}

unsigned int SettingItem::Level() const
{
    unsigned int level = 0;
    for (const SettingItem* up = m_parent.get(); up; up = up->m_parent.get())
        ++level;
    return level;
}

int SettingItem::IndexOf(const SettingItem& child) const
{
    for (size_t i = 0; i < m_items.size(); ++i)
        if (m_items[i].get() == &child)
            return int(i);
    return -1;
}

} // namespace UIKit

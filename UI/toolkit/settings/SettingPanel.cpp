#include "settings/SettingPanel.h"

#include "factory/CtrlFactory.h"
#include "lists/ListCtrl.h"
#include "lists/ListItemCtrl.h"
#include "settings/MainSettingsController.h"
#include "util/Util.h"

namespace UIKit {
namespace {

// Rows carry the list's ids: the base plus their position.
constexpr int c_rowIdBase = 8062;

} // namespace

SettingPanel::SettingPanel(wxWindow* parent, int id, const wxRect& bounds) : PanelCtrl(parent, id, bounds)
{
    Bind(wxEVT_BUTTON, &SettingPanel::OnControlClicked, this);
}

void SettingPanel::SetRootSettingItem(SettingItem::Ptr item)
{
    m_root = item;
    // The factory builds the children after LoadDescriptor: they are found
    // once the page is complete.
    m_title = Util::RecursiveFindControl(this, L"TitleLabel");
    m_list = dynamic_cast<ListCtrl*>(Util::RecursiveFindControl(this, L"List"));
    m_toolbar = Util::RecursiveFindControl(this, L"Toolbar");
    if (m_title && m_root)
        m_title->SetControlLabel(m_root->GetLabel());
    Populate();
    ResizeContent();
}

void SettingPanel::Populate()
{
    m_rows.clear();
    m_childOfRow.clear();
    if (!m_list || !m_root)
        return;
    m_list->RemoveAllItems();
    m_root->Initialize();
    auto factory = CtrlFactory::Instance();
    const auto& children = m_root->GetItems();
    for (size_t i = 0; i < children.size() && factory; ++i) {
        if (!children[i]->IsVisible())
            continue;
        const int id = c_rowIdBase + int(m_rows.size());
        auto* row = factory->CreateControl<ListItemCtrl>(children[i]->GetRowTemplate(), m_list, id);
        if (!row)
            continue;
        children[i]->ConfigureListItem(*row);
        m_list->AddItem(row);
        m_rows.push_back(row);
        m_childOfRow.push_back(unsigned(i));
    }
    m_list->ArrangeItems();
    m_list->SetFocus();
}

ListItemCtrl* SettingPanel::RowOf(unsigned int index) const
{
    for (size_t r = 0; r < m_rows.size(); ++r)
        if (m_childOfRow[r] == index)
            return m_rows[r];
    return nullptr;
}

void SettingPanel::UpdateSettingItem(unsigned int index, SettingItem::Ptr item)
{
    ListItemCtrl* row = RowOf(index);
    if (!row || !item)
        return;
    item->ConfigureListItem(*row);
    row->RefreshUpdate(true);
}

void SettingPanel::OnControlClicked(wxCommandEvent& event)
{
    const int position = event.GetId() - c_rowIdBase;
    if (position < 0 || size_t(position) >= m_rows.size() || event.GetEventObject() != m_rows[position]) {
        event.Skip();
        return;
    }
    if (auto controller = MainSettingsController::Instance())
        controller->ForwardToSettingItem(m_childOfRow[position], *m_rows[position]);
}

void SettingPanel::ResizeContent()
{
    const wxSize size = GetClientSize();
    const int bottom = m_toolbar ? m_toolbar->GetPosition().y : size.y;
    if (m_list) {
        const wxPoint at = m_list->GetPosition();
        m_list->SetControlSize(at.x, at.y, size.x - 2 * at.x, bottom - at.y - 8);
    }
    if (auto* borders = Util::RecursiveFindControl(this, L"Borders"); borders && m_list) {
        const wxRect around = m_list->GetRect().Inflate(4, 4);
        borders->SetControlSize(around.x, around.y, around.width, around.height);
    }
    if (m_title) {
        const wxPoint at = m_title->GetPosition();
        m_title->SetControlSize(at.x, at.y, size.x - 2 * at.x, m_title->GetSize().y);
    }
}

} // namespace UIKit

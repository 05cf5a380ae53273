#pragma once
#include "module/Export.h"
// One page of the settings: a title and a list with a row per visible child
// of its item. A click on a row goes to the settings controller, which lets
// the child act or opens the child's page.
#include "controls/PanelCtrl.h"
#include "settings/SettingItem.h"

#include <vector>

namespace UIKit {

class ListCtrl;
class ListItemCtrl;

class UIKIT_API SettingPanel : public PanelCtrl {
public:
    SettingPanel(wxWindow* parent, int id, const wxRect& bounds);

    // Takes the item whose children the page lists; finds the page's
    // "TitleLabel", "List" and "Toolbar", then sets the title, the rows and
    // the layout.
    virtual void SetRootSettingItem(SettingItem::Ptr item);
    // Builds the rows again from the item's visible children.
    virtual void Populate();
    // Lets the item configure the row of the child at `index` again.
    virtual void UpdateSettingItem(unsigned int index, SettingItem::Ptr item);
    virtual void OnControlClicked(wxCommandEvent& event);
    // Fits title, list and borders into the page's width.
    virtual void ResizeContent();

    const SettingItem::Ptr& GetRootSettingItem() const { return m_root; }
    ListCtrl* GetList() const { return m_list; }
    Control* GetTitle() const { return m_title; }
    // The row of the child at `index`, or null when the child has none.
    ListItemCtrl* RowOf(unsigned int index) const;

private:
    SettingItem::Ptr m_root;
    Control* m_title = nullptr;
    ListCtrl* m_list = nullptr;
    Control* m_toolbar = nullptr;
    // For each row, in list order, the position of its child in the item.
    std::vector<unsigned int> m_childOfRow;
    std::vector<ListItemCtrl*> m_rows;
};

} // namespace UIKit

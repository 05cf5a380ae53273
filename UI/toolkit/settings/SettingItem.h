#pragma once
#include "module/Export.h"
// A node of the settings tree: a row on its parent's page and, when it has
// children or a page template of its own, a page listing them. Plug-ins
// derive from it to make rows that act when selected (a switch, a choice).
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

#include <vector>

namespace UIKit {

class ListItemCtrl;

class UIKIT_API SettingItem {
public:
    using Ptr = Toolkit::smart_ptr<SettingItem>;

    // The template names of the items the settings document describes.
    static const wchar_t* const c_strRowTemplate;
    static const wchar_t* const c_strPageTemplate;

    SettingItem(const TString<wchar_t>& label, const TString<wchar_t>& rowTemplate,
                const TString<wchar_t>& pageTemplate);

    virtual void AddItem(Ptr item);
    virtual void SetParentItem(Ptr parent);
    // Forgets the children, and their link back to this item, so the tree
    // holds no cycle once it is emptied.
    virtual void RemoveAllItems();
    virtual ~SettingItem();
    // Called before the item's page is filled; nothing by default.
    virtual void Initialize() {}
    // The row shows the label, and the next indicator when there is a page
    // of children behind it.
    virtual void ConfigureListItem(ListItemCtrl& row);
    virtual bool IsVisible() { return true; }
    // True when the item handled the selection of its row itself, false when
    // its page should open: a leaf whose page is the plain settings page has
    // nothing to open.
    virtual bool ManageItemSelection(ListItemCtrl& row);
    // Depth in the tree: 0 for an item without parent.
    virtual unsigned int Level() const;

    void SetLabel(const TString<wchar_t>& label) { m_label = label; }
    const TString<wchar_t>& GetLabel() const { return m_label; }
    const TString<wchar_t>& GetRowTemplate() const { return m_rowTemplate; }
    const TString<wchar_t>& GetPageTemplate() const { return m_pageTemplate; }
    const Ptr& GetParentItem() const { return m_parent; }
    const std::vector<Ptr>& GetItems() const { return m_items; }
    // Position of the child among the children, or -1.
    int IndexOf(const SettingItem& child) const;

private:
    TString<wchar_t> m_label;
    TString<wchar_t> m_rowTemplate;
    TString<wchar_t> m_pageTemplate;
    Ptr m_parent;
    std::vector<Ptr> m_items;
};

} // namespace UIKit

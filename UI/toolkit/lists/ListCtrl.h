#pragma once
#include "module/Export.h"
// The skinned vertical list: list items stacked top to bottom, one per row,
// scrolled pixel by pixel through a skinned scroll control (the descendant
// "VScrollCtrl"), with alternate row colours, text filtering, sorting by
// the items' sort strings, single or multiple selection and an edit mode.
// Rows come from a data source and the delegate decides what happens after
// filling; without them the list is its own data source and delegate. Each
// item's window id is its row plus c_idBase. Delegates change rows from any
// thread by dispatching DataAdapterDataEvents, which reach the list through
// its event queue.
#include "Toolkit/Mutex.h"
#include "controls/PanelCtrl.h"
#include "lists/ListCtrlDataSource.h"
#include "lists/ListCtrlDelegate.h"
#include "lists/ListItemCtrl.h"

#include <cstdint>
#include <vector>

namespace UIKit {

class VScrollCtrl;

class UIKIT_API ListCtrl : public PanelCtrl, public ListCtrlDelegate, public ListCtrlDataSource {
public:
    static const wxEventType EVT_ITEM_SELECTED;
    static const wxEventType EVT_CLEAR;
    static const wxEventType EVT_UPDATE_SCROLL;
    static const wxEventType EVT_KEYUP;

    static constexpr unsigned int c_idBase = 8062;
    static constexpr unsigned int c_none = 0xFFFFFFFF;
    static constexpr uint32_t c_doubleClickMs = 300;

    ListCtrl(wxWindow* parent, int id, const wxRect& rect, long style = wxNO_BORDER);
    ~ListCtrl() override;

    // Rebuilds the rows from the data source (unless the delegate says no
    // for a list that has rows), then sorts and selects as the delegate asks.
    virtual void Populate();
    // By item id (or by position below c_idBase); toggles in multi-selection.
    virtual void SetSelectedItem(unsigned int id);
    // Removes and destroys the item; does not lay out.
    virtual void RemoveItem(ListItemCtrl* item);
    // Appends the item and returns its position (-1 for null); callers run
    // ArrangeItems() after adding.
    virtual int AddItem(ListItemCtrl* item);
    virtual int AddItem(Toolkit::smart_ptr<BaseCtrlDescriptor> itemTemplate, const TString<wchar_t>& label, int id,
                        ListItemCtrl::Indicator indicator);
    virtual int AddItem(const TString<wchar_t>& templateName, const TString<wchar_t>& label, int id,
                        ListItemCtrl::Indicator indicator);
    // With the default item template; take the id from GetFreeIndex().
    virtual int AddItem(const TString<wchar_t>& label, int id, ListItemCtrl::Indicator indicator);
    virtual void ArrangeItems();
    virtual void RemoveAllItems();
    // Orders the items from position `from` on by sort string; not stable.
    virtual void Sort(unsigned int from, bool ascending);
    virtual void ToggleEditMode();
    virtual void OnItemAdded(wxCommandEvent& event);
    virtual void OnItemRemoved(wxCommandEvent& event);
    virtual void OnItemUpdated(wxCommandEvent& event);
    virtual void OnScrollChange(wxScrollEvent& event);
    // Does nothing here; lists that open rows override it.
    virtual void OnItemDoubleClick(wxCommandEvent&) {}
    virtual void OnItemClick(wxCommandEvent& event);
    virtual void OnUpdateScroll(wxCommandEvent& event);

    // A ListCtrlDelegate is kept and listened to; anything else gives the
    // list's own delegate.
    void SetDelegate(IDelegate* delegate) override;
    // Kept and populated from; null gives the list's own data source.
    void SetDataSource(IDataSource* source) override;
    bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor) override;
    void OnSize(wxSizeEvent& event) override;
    void OnSetFocus(wxFocusEvent&) override {}
    void OnMouseWheel(wxMouseEvent& event) override;
    void OnKeyDown(wxKeyEvent& event) override;
    void OnKeyUp(wxKeyEvent& event) override;
    bool AcceptsFocusFromKeyboard() const override { return IsShown() && IsEnabled(); }
    // Notes the row events queued to the list (from any thread), so that a
    // fill can tell which of them it already shows.
    void QueueEvent(wxEvent* event) override;

    // Lower-cased; items that do not contain it are hidden and take no place.
    void SetFilter(const TString<wchar_t>& text);
    // Makes the list as high as its shown items and tells the parent.
    void FitHeightToItems();
    void SetVScrollBarToBottom();
    // One more than the largest item id, never below c_idBase.
    unsigned int GetFreeIndex() const;
    // `resetBar` moves the scroll bar back to the top.
    void UpdateScroll(bool resetBar);
    unsigned int TransformIndexToId(unsigned int position) const;
    unsigned int TransformIdToIndex(unsigned int id) const;

    const std::vector<ListItemCtrl*>& GetItems() const { return m_items; }
    unsigned int GetItemCount() const { return unsigned(m_items.size()); }
    unsigned int GetTotalHeight() const { return m_totalHeight; }
    int GetScrollOffset() const { return m_scrollOffset; }
    unsigned int GetItemWidth() const { return m_itemWidth; }
    unsigned int GetSelectedPosition() const { return m_selectedPosition; }
    const TString<wchar_t>& GetFilter() const { return m_filter; }
    unsigned int GetFilterGeneration() const { return m_filterGeneration; }
    bool IsEditMode() const { return m_editMode; }
    ListCtrlDelegate* GetDelegate() const { return m_delegate; }
    IDataSource* GetDataSource() const { return m_dataSource; }
    VScrollCtrl* GetScrollCtrl();

private:
    // Whether the item passes the filter, from its cache when it is current.
    bool passesFilter(ListItemCtrl* item);
    ListItemCtrl* makeRow(unsigned int row);
    ListItemCtrl* findById(unsigned int id) const;
    unsigned int rowOf(const wxCommandEvent& event) const;
    // True for a row event queued before the last fill: the fill read the
    // data after the change, so applying it again would lose or double rows.
    bool isStale(const wxEvent& event);
    // Renumbers the rows from `from` on, as the data did when it inserted
    // or erased a row.
    void shiftRows(unsigned int from, int delta);
    // Fills again when the last queued row event leaves the rows out of
    // step with the data source.
    void resyncAfterBurst();
    void postToParent(wxEvent& event);
    void postSelected(int id, int position);
    void resizeItems(unsigned int width);
    // Shows or hides the scroll control for the total height and scales its
    // bar; returns the width left for the rows.
    unsigned int applyScroll(bool resetBar);

    int m_scrollOffset = 0;
    unsigned int m_itemWidth = 0;
    unsigned int m_totalHeight = 0;
    TString<wchar_t> m_filter;
    unsigned int m_filterGeneration = 1;
    Toolkit::smart_ptr<BaseCtrlDescriptor> m_defaultItemTemplate;
    unsigned int m_sortPosition = 0;
    bool m_sortAscending = true;
    uint32_t m_lastClickTime = 0;
    bool m_editMode = false;
    VScrollCtrl* m_scrollCtrl = nullptr;
    // Set once the descendants were searched for the scroll control after
    // the factory built them.
    bool m_scrollSearched = false;
    // Populate is adding rows; the layout after it updates the scrolling.
    bool m_filling = false;
    ListCtrlDelegate* m_delegate;
    IDataSource* m_dataSource;
    std::vector<ListItemCtrl*> m_items;
    unsigned int m_selectedPosition = c_none;
    wxColour m_oddRowColour;
    wxColour m_evenRowColour;
    // Row events waiting in the queue, and those a fill made stale; guarded
    // by the lock because delegates queue from worker threads.
    Toolkit::Mutex m_queueLock;
    std::vector<const wxEvent*> m_queuedRowEvents;
    std::vector<const wxEvent*> m_staleRowEvents;

    void onItemAdded(wxCommandEvent& e) { OnItemAdded(e); }
    void onItemRemoved(wxCommandEvent& e) { OnItemRemoved(e); }
    void onItemUpdated(wxCommandEvent& e) { OnItemUpdated(e); }
    void onUpdateScroll(wxCommandEvent& e) { OnUpdateScroll(e); }
    void onScrollChange(wxScrollEvent& e) { OnScrollChange(e); }
    void onItemClick(wxCommandEvent& e) { OnItemClick(e); }

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit

#include "lists/ListCtrl.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/TickCount.h"
#include "controls/VScrollBar.h"
#include "controls/VScrollCtrl.h"
#include "descriptors/ListCtrlDescriptor.h"
#include "descriptors/TemplateManager.h"
#include "factory/CtrlFactory.h"
#include "lists/DataAdapterDataEvent.h"
#include "lists/DataAdapterEvent.h"

#include <algorithm>
#include <string_view>

namespace UIKit {

const wxEventType ListCtrl::EVT_ITEM_SELECTED = wxNewEventType();
const wxEventType ListCtrl::EVT_CLEAR = wxNewEventType();
const wxEventType ListCtrl::EVT_UPDATE_SCROLL = wxNewEventType();
const wxEventType ListCtrl::EVT_KEYUP = wxNewEventType();

namespace {

const TString<wchar_t> c_defaultTemplate = L"UIKit::ListItemCtrl";

// The descendant named "VScrollCtrl", without entering the rows.
VScrollCtrl* findScrollCtrl(wxWindow* parent)
{
    for (wxWindow* child : parent->GetChildren()) {
        if (dynamic_cast<ListItemCtrl*>(child))
            continue;
        if (child->GetName() == "VScrollCtrl")
            if (auto* scroll = dynamic_cast<VScrollCtrl*>(child))
                return scroll;
        if (VScrollCtrl* scroll = findScrollCtrl(child))
            return scroll;
    }
    return nullptr;
}

bool isRowEvent(wxEventType type)
{
    return type == DataAdapterEvent::EVT_DATA_ADD || type == DataAdapterEvent::EVT_DATA_REMOVE ||
           type == DataAdapterEvent::EVT_DATA_UPDATE;
}

} // namespace

wxBEGIN_EVENT_TABLE(ListCtrl, PanelCtrl)
    EVT_COMMAND(wxID_ANY, DataAdapterEvent::EVT_DATA_ADD, ListCtrl::onItemAdded)
    EVT_COMMAND(wxID_ANY, DataAdapterEvent::EVT_DATA_REMOVE, ListCtrl::onItemRemoved)
    EVT_COMMAND(wxID_ANY, DataAdapterEvent::EVT_DATA_UPDATE, ListCtrl::onItemUpdated)
    EVT_COMMAND(wxID_ANY, ListCtrl::EVT_UPDATE_SCROLL, ListCtrl::onUpdateScroll)
    EVT_SCROLL_CHANGED(ListCtrl::onScrollChange)
    EVT_BUTTON(wxID_ANY, ListCtrl::onItemClick)
wxEND_EVENT_TABLE()

ListCtrl::ListCtrl(wxWindow* parent, int id, const wxRect& rect, long style)
    : PanelCtrl(parent, id, rect, style), ListCtrlDataSource(c_defaultTemplate), m_delegate(this), m_dataSource(this)
{
    if (auto templates = TemplateManager::Instance(); !templates.IsNull())
        m_defaultItemTemplate = templates->Get(c_defaultTemplate);
}

ListCtrl::~ListCtrl()
{
    if (m_delegate != this)
        m_delegate->RemoveListener(this);
}

bool ListCtrl::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    if (!descriptor || !PanelCtrl::LoadDescriptor(descriptor))
        return false;
    m_scrollCtrl = nullptr;
    m_scrollSearched = false;
    if (auto list = descriptor.DynamicCast<ListCtrlDescriptor>()) {
        m_oddRowColour = list->GetOddRowColour();
        m_evenRowColour = list->GetEvenRowColour();
    }
    return true;
}

VScrollCtrl* ListCtrl::GetScrollCtrl()
{
    // The factory builds the skin's children after LoadDescriptor, before
    // any row exists; once rows exist the search is not repeated.
    if (!m_scrollCtrl && !m_scrollSearched) {
        m_scrollCtrl = findScrollCtrl(this);
        m_scrollSearched = m_scrollCtrl || !m_items.empty();
    }
    return m_scrollCtrl;
}

void ListCtrl::SetDelegate(IDelegate* delegate)
{
    if (m_delegate != this)
        m_delegate->RemoveListener(this);
    auto* list = dynamic_cast<ListCtrlDelegate*>(delegate);
    m_delegate = list ? list : this;
    if (list)
        list->AddListener(this);
}

void ListCtrl::SetDataSource(IDataSource* source)
{
    m_dataSource = source ? source : this;
    if (source)
        Populate();
}

ListItemCtrl* ListCtrl::makeRow(unsigned int row)
{
    auto factory = CtrlFactory::Instance();
    const auto& itemTemplate = m_dataSource->GetItemTemplate();
    if (factory.IsNull() || !itemTemplate)
        return nullptr;
    Control* control = factory->CreateControl(itemTemplate, this, int(row + c_idBase));
    auto* item = dynamic_cast<ListItemCtrl*>(control);
    if (control && !item)
        control->Destroy();
    return item;
}

void ListCtrl::QueueEvent(wxEvent* event)
{
    if (event && isRowEvent(event->GetEventType())) {
        Toolkit::MutexLocker lock(m_queueLock);
        m_queuedRowEvents.push_back(event);
    }
    PanelCtrl::QueueEvent(event);
}

bool ListCtrl::isStale(const wxEvent& event)
{
    Toolkit::MutexLocker lock(m_queueLock);
    auto queued = std::find(m_queuedRowEvents.begin(), m_queuedRowEvents.end(), &event);
    if (queued != m_queuedRowEvents.end())
        m_queuedRowEvents.erase(queued);
    auto stale = std::find(m_staleRowEvents.begin(), m_staleRowEvents.end(), &event);
    if (stale == m_staleRowEvents.end())
        return false;
    m_staleRowEvents.erase(stale);
    return true;
}

void ListCtrl::Populate()
{
    if (m_dataSource->VirtualDataSource())
        return;
    if (!m_delegate->shouldRefresh() && !m_items.empty())
        return;
    {
        Toolkit::MutexLocker lock(m_queueLock);
        m_staleRowEvents.insert(m_staleRowEvents.end(), m_queuedRowEvents.begin(), m_queuedRowEvents.end());
        m_queuedRowEvents.clear();
    }
    RemoveAllItems();
    const unsigned int count = m_dataSource->getRowCount();
    if (count == 0 || !m_dataSource->GetItemTemplate())
        return;
    // The scroll bar is scaled once, by the layout after the fill, rather
    // than after every row.
    m_filling = true;
    for (unsigned int row = 0; row < count; ++row) {
        // Decorating may shrink the data; rows it adds arrive as events.
        if (row >= m_dataSource->getRowCount())
            break;
        if (ListItemCtrl* item = makeRow(row)) {
            AddItem(item);
            unsigned int decorated = row;
            m_dataSource->decorateItemAtRowIndex(decorated, *item);
        }
    }
    m_filling = false;
    m_sortPosition = 0;
    m_sortAscending = true;
    if (m_dataSource->getRowCount() > 0 && m_delegate->shouldSortAtIndex(m_sortPosition, m_sortAscending))
        Sort(m_sortPosition, m_sortAscending);
    unsigned int first = 0;
    if (m_dataSource->getRowCount() > 0 && m_delegate->shouldSelectIndex(first))
        SetSelectedItem(first + c_idBase);
    ArrangeItems();
}

bool ListCtrl::passesFilter(ListItemCtrl* item)
{
    if (m_filter.empty())
        return true;
    if (item->GetFilterGeneration() != m_filterGeneration)
        item->SetCachedMatch(m_filterGeneration, item->FilterMatch(m_filter));
    return item->GetCachedMatch();
}

int ListCtrl::AddItem(ListItemCtrl* item)
{
    if (!item)
        return -1;
    if (m_editMode)
        item->ToggleEditMode();
    m_items.push_back(item);
    // Only rows that pass the filter take place.
    if (passesFilter(item))
        m_totalHeight += item->GetHeight();
    else
        item->Hide();
    if (!m_filling)
        UpdateScroll(false);
    return int(m_items.size() - 1);
}

int ListCtrl::AddItem(Toolkit::smart_ptr<BaseCtrlDescriptor> itemTemplate, const TString<wchar_t>& label, int id,
                      ListItemCtrl::Indicator indicator)
{
    auto factory = CtrlFactory::Instance();
    if (factory.IsNull() || !itemTemplate)
        return -1;
    Control* control = factory->CreateControl(itemTemplate, this, id);
    auto* item = dynamic_cast<ListItemCtrl*>(control);
    if (!item) {
        if (control)
            control->Destroy();
        return -1;
    }
    if (!label.empty())
        item->SetControlLabel(label);
    item->SetIndicator(indicator);
    return AddItem(item);
}

int ListCtrl::AddItem(const TString<wchar_t>& templateName, const TString<wchar_t>& label, int id,
                      ListItemCtrl::Indicator indicator)
{
    auto templates = TemplateManager::Instance();
    return AddItem(templates.IsNull() ? Toolkit::smart_ptr<BaseCtrlDescriptor>() : templates->Get(templateName), label,
                   id, indicator);
}

int ListCtrl::AddItem(const TString<wchar_t>& label, int id, ListItemCtrl::Indicator indicator)
{
    return AddItem(m_defaultItemTemplate, label, id, indicator);
}

void ListCtrl::RemoveItem(ListItemCtrl* item)
{
    if (!item)
        return;
    RemoveChild(item);
    const auto it = std::find(m_items.begin(), m_items.end(), item);
    if (it == m_items.end())
        return;
    if (passesFilter(item))
        m_totalHeight -= std::min(m_totalHeight, item->GetHeight());
    m_items.erase(it);
    delete item;
    UpdateScroll(false);
}

void ListCtrl::RemoveAllItems()
{
    for (ListItemCtrl* item : m_items) {
        RemoveChild(item);
        delete item;
    }
    m_items.clear();
    m_selectedPosition = c_none;
    m_totalHeight = 0;
    m_scrollOffset = 0;
    UpdateScroll(true);
    wxCommandEvent clear(EVT_CLEAR, -1);
    clear.SetEventObject(this);
    postToParent(clear);
}

unsigned int ListCtrl::GetFreeIndex() const
{
    unsigned int next = c_idBase;
    for (const ListItemCtrl* item : m_items)
        next = std::max(next, unsigned(item->GetId()) + 1);
    return next;
}

unsigned int ListCtrl::TransformIndexToId(unsigned int position) const
{
    return position < m_items.size() ? unsigned(m_items[position]->GetId()) : c_none;
}

unsigned int ListCtrl::TransformIdToIndex(unsigned int id) const
{
    for (size_t i = 0; i < m_items.size(); ++i)
        if (unsigned(m_items[i]->GetId()) == id)
            return unsigned(i);
    // Below the id base a position was passed where an id is expected.
    return id < c_idBase ? id : c_none;
}

ListItemCtrl* ListCtrl::findById(unsigned int id) const
{
    for (ListItemCtrl* item : m_items)
        if (unsigned(item->GetId()) == id)
            return item;
    return nullptr;
}

void ListCtrl::postToParent(wxEvent& event)
{
    if (wxWindow* parent = GetParent())
        parent->GetEventHandler()->AddPendingEvent(event);
}

void ListCtrl::postSelected(int id, int position)
{
    wxCommandEvent selected(EVT_ITEM_SELECTED, id);
    selected.SetEventObject(this);
    selected.SetInt(position);
    postToParent(selected);
}

void ListCtrl::SetSelectedItem(unsigned int id)
{
    const unsigned int position = TransformIdToIndex(id);
    if (position >= m_items.size())
        return;
    ListItemCtrl* item = m_items[position];
    const unsigned int itemId = unsigned(item->GetId());
    if (m_delegate->shouldDoMultiSelection()) {
        m_selectedPosition = position;
        const bool select = !item->IsSelected();
        item->Select(select);
        if (select)
            m_dataSource->doSelectedIndex(itemId - c_idBase);
        else
            m_dataSource->doDeselectedIndex(itemId - c_idBase);
    } else {
        if (m_selectedPosition < m_items.size() && m_selectedPosition != position) {
            ListItemCtrl* previous = m_items[m_selectedPosition];
            previous->Select(false);
            m_dataSource->doDeselectedIndex(unsigned(previous->GetId()) - c_idBase);
        }
        item->Select(true);
        m_selectedPosition = position;
        m_dataSource->doSelectedIndex(itemId - c_idBase);
    }
    postSelected(int(itemId), int(position));
}

void ListCtrl::Sort(unsigned int from, bool ascending)
{
    if (from >= m_items.size())
        return;
    const unsigned int selectedId = TransformIndexToId(m_selectedPosition);
    // Wide characters compared as numbers, the shorter string first on a tie.
    auto less = [](const ListItemCtrl* a, const ListItemCtrl* b) {
        return std::wstring_view(a->GetSortString()) < std::wstring_view(b->GetSortString());
    };
    if (ascending)
        std::sort(m_items.begin() + from, m_items.end(), less);
    else
        std::sort(m_items.begin() + from, m_items.end(), [&less](auto* a, auto* b) { return less(b, a); });
    if (selectedId != c_none)
        m_selectedPosition = TransformIdToIndex(selectedId);
}

void ListCtrl::ArrangeItems()
{
    // The total height first, so the scroll control is shown or hidden and
    // the rows are sized once, at their final width.
    m_totalHeight = 0;
    for (ListItemCtrl* item : m_items) {
        if (passesFilter(item))
            m_totalHeight += item->GetHeight();
        else if (item->IsShown())
            item->Hide();
    }
    m_itemWidth = applyScroll(false);
    int y = -m_scrollOffset;
    bool odd = true;
    for (ListItemCtrl* item : m_items) {
        if (!passesFilter(item))
            continue;
        const int height = int(item->GetHeight());
        const wxColour& colour = odd ? m_oddRowColour : m_evenRowColour;
        const wxColour wanted = colour.IsOk() ? colour
                                : item->GetDescriptor() && item->GetDescriptor()->GetBackColour().IsOk()
                                    ? item->GetDescriptor()->GetBackColour()
                                    : wxColour(255, 255, 255, 0);
        // Colour and place are only touched when they change, so scrolling
        // a long list does not repaint rows that stay off screen.
        if (item->GetBackgroundColor() != wanted)
            item->SetBackgroundColor(wanted);
        // -1 would mean "leave unchanged" to the toolkit.
        const wxRect place(0, y == -1 ? 0 : y, int(m_itemWidth), height);
        if (item->GetRect() != place) {
            item->SetControlSize(place.x, place.y, place.width, place.height);
            item->RefreshUpdate(true);
        }
        if (!item->IsShown())
            item->Show();
        y += height;
        odd = !odd;
    }
    RefreshUpdate(false);
}

void ListCtrl::resizeItems(unsigned int width)
{
    m_itemWidth = width;
    for (ListItemCtrl* item : m_items)
        item->SetControlSize(-1, -1, int(width), int(item->GetHeight()));
}

unsigned int ListCtrl::applyScroll(bool resetBar)
{
    const wxSize client = GetClientSize();
    unsigned int usable = unsigned(std::max(0, client.x));
    VScrollCtrl* scroll = GetScrollCtrl();
    if (!scroll)
        return usable;
    VScrollBar* bar = scroll->GetScrollBar();
    if (resetBar && bar)
        bar->SetPos(0);
    if (m_totalHeight <= unsigned(std::max(0, client.y))) {
        scroll->Hide();
        m_scrollOffset = 0;
        return usable;
    }
    scroll->Show();
    if (bar && !m_items.empty())
        bar->SetScroll(m_totalHeight, unsigned(m_items.size()), unsigned(client.y));
    return usable - std::min(usable, unsigned(scroll->GetSize().x));
}

void ListCtrl::UpdateScroll(bool resetBar)
{
    const unsigned int usable = applyScroll(resetBar);
    if (usable != m_itemWidth)
        resizeItems(usable);
}

void ListCtrl::OnUpdateScroll(wxCommandEvent&)
{
    m_totalHeight = 0;
    for (ListItemCtrl* item : m_items) {
        if (!passesFilter(item))
            continue;
        item->Move(0, int(m_totalHeight));
        m_totalHeight += item->GetHeight();
    }
    UpdateScroll(false);
}

void ListCtrl::OnSize(wxSizeEvent& event)
{
    PanelCtrl::OnSize(event);
    const wxSize client = GetClientSize();
    unsigned int width = unsigned(std::max(0, client.x));
    if (VScrollCtrl* scroll = GetScrollCtrl()) {
        scroll->SetHeight(unsigned(std::max(0, client.y)));
        if (unsigned(client.y) < m_totalHeight) {
            if (VScrollBar* bar = scroll->GetScrollBar(); bar && !m_items.empty())
                bar->SetScroll(m_totalHeight, unsigned(m_items.size()), unsigned(client.y));
            width -= std::min(width, unsigned(scroll->GetSize().x));
        }
    }
    if (width != m_itemWidth)
        resizeItems(width);
}

void ListCtrl::OnScrollChange(wxScrollEvent& event)
{
    m_scrollOffset = event.GetPosition();
    ArrangeItems();
}

void ListCtrl::OnMouseWheel(wxMouseEvent& event)
{
    VScrollCtrl* scroll = GetScrollCtrl();
    if (scroll && scroll->IsShown())
        scroll->GetEventHandler()->ProcessEvent(event);
}

void ListCtrl::SetFilter(const TString<wchar_t>& text)
{
    if (text == m_filter)
        return;
    ++m_filterGeneration;
    m_scrollOffset = 0;
    m_filter = ListItemCtrl::LowerSingleByte(text);
    ArrangeItems();
}

void ListCtrl::FitHeightToItems()
{
    m_scrollOffset = 0;
    const int oldHeight = GetSize().y;
    SetHeight(m_totalHeight);
    ArrangeItems();
    if (auto* parent = dynamic_cast<Control*>(GetParent())) {
        wxSizeEvent grown(wxSize(0, int(m_totalHeight) - oldHeight));
        parent->OnChildSize(grown);
    }
}

void ListCtrl::SetVScrollBarToBottom()
{
    if (m_items.size() < 2)
        return;
    unsigned int all = 0;
    for (const ListItemCtrl* item : m_items)
        all += item->GetHeight();
    VScrollCtrl* scroll = GetScrollCtrl();
    if (GetHeight() < all && scroll && scroll->GetScrollBar())
        scroll->GetScrollBar()->SetVScrollBarToBottom();
}

void ListCtrl::ToggleEditMode()
{
    m_editMode = !m_editMode;
    m_dataSource->doDeselectedAll();
    for (ListItemCtrl* item : m_items) {
        item->Select(false);
        item->ToggleEditMode();
    }
    m_selectedPosition = c_none;
}

void ListCtrl::OnItemClick(wxCommandEvent& event)
{
    const uint32_t now = uint32_t(Toolkit::GetTickCount());
    const bool onSelected = unsigned(event.GetId()) == TransformIndexToId(m_selectedPosition);
    if (now - m_lastClickTime < c_doubleClickMs && onSelected) {
        OnItemDoubleClick(event);
    } else if (event.GetId() >= int(c_idBase)) {
        auto* item = dynamic_cast<ListItemCtrl*>(event.GetEventObject());
        if (item && item->IsEnabled())
            SetSelectedItem(unsigned(event.GetId()));
    }
    event.Skip();
    m_lastClickTime = now;
}

void ListCtrl::OnKeyDown(wxKeyEvent& event)
{
    m_controlHeld = event.ControlDown();
    m_shiftHeld = event.ShiftDown();
    postToParent(event);
}

void ListCtrl::OnKeyUp(wxKeyEvent& event)
{
    wxCommandEvent keyUp(EVT_KEYUP, -1);
    keyUp.SetEventObject(this);
    keyUp.SetInt(event.GetKeyCode());
    keyUp.SetExtraLong((m_controlHeld ? WXK_CONTROL : 0) + (m_shiftHeld ? WXK_SHIFT : 0));
    // Posted to the list itself, whence it travels up the parents.
    AddPendingEvent(keyUp);
    m_controlHeld = false;
    m_shiftHeld = false;
    postToParent(event);
}

unsigned int ListCtrl::rowOf(const wxCommandEvent& event) const
{
    return static_cast<const DataAdapterDataEvent&>(event).GetRow();
}

void ListCtrl::shiftRows(unsigned int from, int delta)
{
    for (ListItemCtrl* item : m_items)
        if (unsigned(item->GetId()) >= from + c_idBase)
            item->SetId(item->GetId() + delta);
}

void ListCtrl::resyncAfterBurst()
{
    {
        Toolkit::MutexLocker lock(m_queueLock);
        if (!m_queuedRowEvents.empty())
            return;
    }
    // Rows made from the data source's template must match its row count
    // once the queued changes are through; a burst whose row numbers no
    // longer fit the data when they arrive is repaired by filling again.
    if (m_dataSource != this && m_dataSource->GetItemTemplate() && !m_dataSource->VirtualDataSource() &&
        m_items.size() != m_dataSource->getRowCount())
        Populate();
}

void ListCtrl::OnItemAdded(wxCommandEvent& event)
{
    if (isStale(event))
        return;
    const unsigned int row = rowOf(event);
    const unsigned int rows = m_dataSource->getRowCount();
    ListItemCtrl* item = row < rows ? makeRow(row) : nullptr;
    if (row >= rows)
        TK_LOG(Toolkit::LogError) << "row " << row << " added past the end of " << rows << " rows; ignored";
    if (item) {
        // The data inserted the row: the rows behind it moved down by one.
        shiftRows(row, +1);
        unsigned int decorated = row;
        m_dataSource->decorateItemAtRowIndex(decorated, *item);
        AddItem(item);
        Sort(m_sortPosition, m_sortAscending);
        ArrangeItems();
    }
    resyncAfterBurst();
}

void ListCtrl::OnItemUpdated(wxCommandEvent& event)
{
    if (isStale(event))
        return;
    unsigned int row = rowOf(event);
    ListItemCtrl* item = findById(row + c_idBase);
    if (item && row < m_dataSource->getRowCount() && m_dataSource->isValidAt(row)) {
        m_dataSource->decorateItemAtRowIndex(row, *item);
        item->Enable(true);
        // The decoration may have changed the label, and so the filter match.
        item->SetCachedMatch(ListItemCtrl::c_noGeneration, false);
        Sort(m_sortPosition, m_sortAscending);
        ArrangeItems();
    }
    resyncAfterBurst();
}

void ListCtrl::OnItemRemoved(wxCommandEvent& event)
{
    if (isStale(event))
        return;
    const unsigned int row = rowOf(event);
    if (ListItemCtrl* item = findById(row + c_idBase)) {
        const unsigned int position = TransformIdToIndex(unsigned(item->GetId()));
        const bool wasSelected = position == m_selectedPosition;
        RemoveItem(item);
        // The rows behind it moved up in the data; the selection stays on its item.
        shiftRows(row + 1, -1);
        if (m_selectedPosition != c_none && position < m_selectedPosition)
            --m_selectedPosition;
        ArrangeItems();
        if (wasSelected) {
            m_selectedPosition = c_none;
            postSelected(-1, -1);
        }
    }
    resyncAfterBurst();
}

} // namespace UIKit

#pragma once
#include "module/Export.h"
// The events with which the settings controller drives the settings screen.
// Each carries the item concerned (the update of a row also its position);
// events are posted as copies, so each kind clones what it carries. The five
// kinds are one family and only differ by their event type, so they share
// this header.
#include "settings/SettingItem.h"

#include <wx/event.h>

namespace UIKit {

class UIKIT_API SettingItemEvent : public wxCommandEvent {
public:
    SettingItemEvent(wxEventType type, SettingItem::Ptr item) : wxCommandEvent(type, -1), m_item(item) {}
    const SettingItem::Ptr& GetItem() const { return m_item; }
    wxEvent* Clone() const override { return new SettingItemEvent(*this); }

private:
    SettingItem::Ptr m_item;
};

// Show this item's page on top (processed at once).
class UIKIT_API PushSettingItemEvent : public SettingItemEvent {
public:
    static const wxEventType EVENT;
    explicit PushSettingItemEvent(SettingItem::Ptr item) : SettingItemEvent(EVENT, item) {}
    wxEvent* Clone() const override { return new PushSettingItemEvent(*this); }
};

// Drop the top page; the item is the one that becomes current.
class UIKIT_API PopSettingItemEvent : public SettingItemEvent {
public:
    static const wxEventType EVENT;
    explicit PopSettingItemEvent(SettingItem::Ptr item) : SettingItemEvent(EVENT, item) {}
    wxEvent* Clone() const override { return new PopSettingItemEvent(*this); }
};

// Drop every page but the root's.
class UIKIT_API PopToRootSettingItemEvent : public SettingItemEvent {
public:
    static const wxEventType EVENT;
    explicit PopToRootSettingItemEvent(SettingItem::Ptr item) : SettingItemEvent(EVENT, item) {}
    wxEvent* Clone() const override { return new PopToRootSettingItemEvent(*this); }
};

// Configure the row at a position of the top page again.
class UIKIT_API UpdateSettingItemEvent : public SettingItemEvent {
public:
    static const wxEventType EVENT;
    UpdateSettingItemEvent(unsigned int index, SettingItem::Ptr item) : SettingItemEvent(EVENT, item), m_index(index)
    {
    }
    unsigned int GetIndex() const { return m_index; }
    wxEvent* Clone() const override { return new UpdateSettingItemEvent(*this); }

private:
    unsigned int m_index;
};

// Fill again every page that lists this item's children.
class UIKIT_API UpdateSettingPanelEvent : public SettingItemEvent {
public:
    static const wxEventType EVENT;
    explicit UpdateSettingPanelEvent(SettingItem::Ptr item) : SettingItemEvent(EVENT, item) {}
    wxEvent* Clone() const override { return new UpdateSettingPanelEvent(*this); }
};

} // namespace UIKit

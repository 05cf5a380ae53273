#pragma once
#include "module/Export.h"
// Broadcasts command events to a list of handlers from any thread: the base
// of delegates, of the device connection controller and of the popup
// manager. Nothing is delivered at once; each handler gets its own copy
// later from its event queue on the GUI thread. Handlers are not owned and
// must remove themselves before they are destroyed (see ListenerList).
#include "lists/ListenerList.h"

class wxCommandEvent;

namespace UIKit {

class UIKIT_API EventDispatcher {
public:
    EventDispatcher() = default;
    virtual ~EventDispatcher() = default;
    EventDispatcher(const EventDispatcher&) = delete;
    EventDispatcher& operator=(const EventDispatcher&) = delete;

    void AddListener(wxEvtHandler* listener) { m_listeners.AddHandler(listener); }
    void RemoveListener(wxEvtHandler* listener) { m_listeners.RemoveHandler(listener); }
    // The caller keeps the event; listeners receive copies.
    void DispatchEvent(wxCommandEvent& event);

    size_t GetListenerCount() { return m_listeners.Size(); }
    bool HasListener(wxEvtHandler* listener) { return m_listeners.Contains(listener); }

private:
    ListenerList m_listeners;
};

} // namespace UIKit

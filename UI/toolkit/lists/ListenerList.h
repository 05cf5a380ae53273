#pragma once
#include "module/Export.h"
// The thread-safe list of event handlers behind every event dispatcher: it
// needs nothing of the GUI library beyond its event base types, so the same
// code is checked on its own under the thread sanitizer.
//
// The list holds plain pointers, not references: handlers are windows, which
// belong to their parents and cannot be shared through counted pointers. A
// handler therefore removes itself before it is destroyed. Removal takes the
// same lock as posting, so once RemoveHandler returns no other thread is
// queueing to that handler any more; copies already queued to it are deleted
// with it by the GUI library, so they reach nobody.
#include "Toolkit/Mutex.h"

#include <cstddef>
#include <list>

class wxEvent;
class wxEvtHandler;

namespace UIKit {

class UIKIT_API ListenerList {
public:
    // Appends the handler unless it is already listed; null is ignored.
    void AddHandler(wxEvtHandler* handler);
    // Removes the handler's entry, if there is one.
    void RemoveHandler(wxEvtHandler* handler);
    // Queues a copy of the event to every handler, in the order of adding.
    // Safe from any thread: the copies are processed by the event loop.
    void Post(const wxEvent& event);
    size_t Size();
    bool Contains(wxEvtHandler* handler);

private:
    Toolkit::Mutex m_lock;
    std::list<wxEvtHandler*> m_handlers;
};

} // namespace UIKit

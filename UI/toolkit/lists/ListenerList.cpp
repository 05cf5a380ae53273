#include "lists/ListenerList.h"

#include <wx/event.h>

#include <algorithm>

namespace UIKit {

void ListenerList::AddHandler(wxEvtHandler* handler)
{
    if (!handler)
        return;
    Toolkit::MutexLocker lock(m_lock);
    if (std::find(m_handlers.begin(), m_handlers.end(), handler) == m_handlers.end())
        m_handlers.push_back(handler);
}

void ListenerList::RemoveHandler(wxEvtHandler* handler)
{
    Toolkit::MutexLocker lock(m_lock);
    const auto found = std::find(m_handlers.begin(), m_handlers.end(), handler);
    if (found != m_handlers.end())
        m_handlers.erase(found);
}

void ListenerList::Post(const wxEvent& event)
{
    // The lock is held while queueing, so a handler removed on another thread
    // gets its copy either before the removal or not at all.
    Toolkit::MutexLocker lock(m_lock);
    for (wxEvtHandler* handler : m_handlers)
        handler->AddPendingEvent(event);
}

size_t ListenerList::Size()
{
    Toolkit::MutexLocker lock(m_lock);
    return m_handlers.size();
}

bool ListenerList::Contains(wxEvtHandler* handler)
{
    Toolkit::MutexLocker lock(m_lock);
    return std::find(m_handlers.begin(), m_handlers.end(), handler) != m_handlers.end();
}

} // namespace UIKit

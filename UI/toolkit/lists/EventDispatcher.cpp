#include "lists/EventDispatcher.h"

#include <wx/event.h>

namespace UIKit {

void EventDispatcher::DispatchEvent(wxCommandEvent& event)
{
    m_listeners.Post(event);
}

} // namespace UIKit

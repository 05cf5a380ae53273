#include "lists/DataAdapterEvent.h"

namespace UIKit {

// Defined in one translation unit in this order, so the types are numbered
// in this order when the library is loaded.
const wxEventType DataAdapterEvent::EVT_WORKING_PROGRESS_INIT_BEGIN = wxNewEventType();
const wxEventType DataAdapterEvent::EVT_WORKING_PROGRESS_INIT_END = wxNewEventType();
const wxEventType DataAdapterEvent::EVT_WORKING_PROGRESS_BEGIN = wxNewEventType();
const wxEventType DataAdapterEvent::EVT_WORKING_PROGRESS_END = wxNewEventType();
const wxEventType DataAdapterEvent::EVT_WORKING_PROGRESS = wxNewEventType();
const wxEventType DataAdapterEvent::EVT_WORKING_PROGRESS_SPINNING = wxNewEventType();
const wxEventType DataAdapterEvent::EVT_WORKING_PROGRESS_ERROR = wxNewEventType();
const wxEventType DataAdapterEvent::EVT_DATA_ADD = wxNewEventType();
const wxEventType DataAdapterEvent::EVT_DATA_REMOVE = wxNewEventType();
const wxEventType DataAdapterEvent::EVT_DATA_UPDATE = wxNewEventType();
const wxEventType DataAdapterEvent::EVT_STATUS_CHANGED = wxNewEventType();
const wxEventType DataAdapterEvent::EVT_CONTROLER_CHANGED = wxNewEventType();

} // namespace UIKit

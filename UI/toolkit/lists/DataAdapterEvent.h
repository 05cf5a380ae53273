#pragma once
#include "module/Export.h"
// The event types a delegate and the controls around it exchange about data:
// progress of background work, rows added, removed or updated, and status
// changes. Lists consume the three row events; the others are for the host
// and the plug-ins.
#include <wx/event.h>

namespace UIKit {

class UIKIT_API DataAdapterEvent {
public:
    static const wxEventType EVT_WORKING_PROGRESS_INIT_BEGIN;
    static const wxEventType EVT_WORKING_PROGRESS_INIT_END;
    static const wxEventType EVT_WORKING_PROGRESS_BEGIN;
    static const wxEventType EVT_WORKING_PROGRESS_END;
    static const wxEventType EVT_WORKING_PROGRESS;
    static const wxEventType EVT_WORKING_PROGRESS_SPINNING;
    static const wxEventType EVT_WORKING_PROGRESS_ERROR;
    static const wxEventType EVT_DATA_ADD;
    static const wxEventType EVT_DATA_REMOVE;
    static const wxEventType EVT_DATA_UPDATE;
    static const wxEventType EVT_STATUS_CHANGED;
    static const wxEventType EVT_CONTROLER_CHANGED;
};

} // namespace UIKit

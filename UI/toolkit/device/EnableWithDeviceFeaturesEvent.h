#pragma once
#include "module/Export.h"
// Posted by a device-events button to itself: re-evaluate, from the event
// queue, whether the button may be enabled.
#include <wx/event.h>

namespace UIKit {

class UIKIT_API EnableWithDeviceFeaturesEvent : public wxCommandEvent {
public:
    static const wxEventType EVT_DEVICEFEATURES_CHANGED;

    EnableWithDeviceFeaturesEvent() : wxCommandEvent(EVT_DEVICEFEATURES_CHANGED, 0) {}
    wxEvent* Clone() const override { return new EnableWithDeviceFeaturesEvent(); }
};

} // namespace UIKit

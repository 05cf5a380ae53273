#pragma once
#include "module/Export.h"
// What the device controller tells windows about a device (found, lost,
// updated, a request...): the event type says what happened, the id says
// to which device. Posted as copies, so Clone copies the id.
#include <wx/event.h>

namespace UIKit {

class UIKIT_API DeviceEvent : public wxCommandEvent {
public:
    DeviceEvent(wxEventType type, unsigned long long deviceId) : wxCommandEvent(type, 0), m_deviceId(deviceId) {}

    unsigned long long GetDeviceId() const { return m_deviceId; }
    wxEvent* Clone() const override;

private:
    unsigned long long m_deviceId;
};

} // namespace UIKit

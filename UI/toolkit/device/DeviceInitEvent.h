#pragma once
#include "module/Export.h"
// A step of a device's initialisation, reported for every port.
#include "Devices/DeviceEvent.h"
#include "device/DeviceEvent.h"

namespace UIKit {

class UIKIT_API DeviceInitEvent : public DeviceEvent {
public:
    DeviceInitEvent(wxEventType type, unsigned long long deviceId, Devices::InitializationStep step)
        : DeviceEvent(type, deviceId), m_step(step)
    {
    }

    Devices::InitializationStep GetStep() const { return m_step; }
    wxEvent* Clone() const override;

private:
    Devices::InitializationStep m_step;
};

} // namespace UIKit

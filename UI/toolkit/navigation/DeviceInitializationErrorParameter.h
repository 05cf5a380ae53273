#pragma once
#include "module/Export.h"
// Given to the SIM error screen: the device whose initialisation failed and
// the step at which it did (SIM missing or SIM failure).
#include "Devices/DeviceEvent.h"
#include "navigation/DeviceNameParameter.h"

namespace UIKit {

class UIKIT_API DeviceInitializationErrorParameter : public DeviceNameParameter {
public:
    DeviceInitializationErrorParameter(uint64_t deviceId, const TString<wchar_t>& deviceName,
                                       Devices::InitializationStep step)
        : DeviceNameParameter(deviceId, deviceName), m_step(step)
    {
    }
    Devices::InitializationStep GetStep() const { return m_step; }

private:
    Devices::InitializationStep m_step;
};

} // namespace UIKit

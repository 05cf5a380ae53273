#pragma once
#include "module/Export.h"
// Given to the PIN or PUK screen: the device that asks, which code it wants,
// and what the device said with the request (attempts left, which may be
// unknown, and whether the previous code was refused).
#include "Devices/DeviceEvent.h"
#include "navigation/DeviceNameParameter.h"

namespace UIKit {

class UIKIT_API SecurityCodeRequiredParameter : public DeviceNameParameter {
public:
    SecurityCodeRequiredParameter(uint64_t deviceId, const TString<wchar_t>& deviceName, Devices::SecurityCode code,
                                  unsigned int attempts, bool retry)
        : DeviceNameParameter(deviceId, deviceName), m_code(code), m_attempts(attempts), m_retry(retry)
    {
    }
    Devices::SecurityCode GetCode() const { return m_code; }
    bool IsPuk() const { return (m_code & Devices::SecurityCodePukBit) != 0; }
    // Devices::c_attemptsUnknown when the device does not say.
    unsigned int GetAttempts() const { return m_attempts; }
    bool IsRetry() const { return m_retry; }

private:
    Devices::SecurityCode m_code;
    unsigned int m_attempts;
    bool m_retry;
};

} // namespace UIKit

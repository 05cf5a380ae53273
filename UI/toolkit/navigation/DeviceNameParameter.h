#pragma once
#include "module/Export.h"
// Names the device a state is about (for example one that entered flight
// mode). The parameters of PIN/PUK requests and of failed initialisations
// derive from this one and come with the device enumerations.
#include "Toolkit/TString.h"
#include "navigation/IStateParameter.h"

#include <cstdint>

namespace UIKit {

class UIKIT_API DeviceNameParameter : public IStateParameter {
public:
    DeviceNameParameter(uint64_t deviceId, const TString<wchar_t>& deviceName)
        : m_deviceId(deviceId), m_deviceName(deviceName)
    {
    }
    uint64_t GetDeviceId() const { return m_deviceId; }
    const TString<wchar_t>& GetDeviceName() const { return m_deviceName; }

private:
    uint64_t m_deviceId;
    TString<wchar_t> m_deviceName;
};

} // namespace UIKit

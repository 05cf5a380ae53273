#pragma once
// The backend that gives the device manager a Device for an identity that
// discovery reported.
#include "Devices/Device.h"
#include "Toolkit/smart_ptr.h"

namespace Devices {

class DeviceBackend {
public:
    virtual ~DeviceBackend() = default;

    // A device attached to its driver, or null when the backend does not
    // know the identity (any more).
    virtual Toolkit::smart_ptr<Device> Open(unsigned long long id) = 0;
};

} // namespace Devices

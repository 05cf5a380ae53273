#pragma once
// What a backend does for one device when the application asks. A device
// may vanish at any moment: every operation then fails (false or -1)
// instead of blocking or crashing.
#include "Devices/DeviceEvent.h"
#include "Devices/ModemEnums.h"

namespace Devices {

// Why a data connection is ended.
enum DisconnectReason : int {
    DisconnectByUser = 1,
    DisconnectNetworkLost = 2,
    DisconnectDeviceLost = 3,
    DisconnectApplicationStopping = 4,
};

class DeviceDriver {
public:
    virtual ~DeviceDriver() = default;

    // 0 when the request was taken, -1 when the device cannot do it now.
    virtual int Connect() = 0;
    virtual int Disconnect(DisconnectReason reason) = 0;
    virtual bool SetPower(PowerState power) = 0;
    // The application lets go of the device: pending requests end and no
    // more reports come until discovery reports it again.
    virtual void Release() = 0;
};

} // namespace Devices

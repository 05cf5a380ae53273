#pragma once
// The network side of a device: its data connection. It refers to its
// device without owning it, so that it fails cleanly once the device is
// gone.
#include "Devices/DeviceDriver.h"
#include "Devices/ModemEnums.h"

#include <memory>

namespace Devices {

class Device;

class NetworkManager {
public:
    explicit NetworkManager(std::weak_ptr<Device> device) : m_device(std::move(device)) {}

    // True while the device is present and its radio is on.
    bool IsActive() const;
    // DeviceStateUnknown once the device is gone.
    DeviceState GetState() const;
    // 0 when the request was taken, -1 when the device is gone or cannot.
    int Connect();
    int Disconnect(DisconnectReason reason);

private:
    std::weak_ptr<Device> m_device;
};

} // namespace Devices

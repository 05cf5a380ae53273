#pragma once
// One device as the application sees it: a stable identity, a snapshot of
// what it reports (updated by its backend), and the operations the user
// may ask for. The device outlives its presence: once it is pulled out or
// dropped it is detached, its snapshot stays readable and every operation
// fails.
//
// Any thread may read and operate; the device's own lock (GetLock) keeps
// readings consistent, and is re-entrant.
#include "Devices/DeviceDriver.h"
#include "Devices/DeviceInfo.h"
#include "Toolkit/Mutex.h"
#include "Toolkit/smart_ptr.h"

#include <memory>

namespace Devices {

class NetworkManager;

class Device : public std::enable_shared_from_this<Device> {
public:
    Device(unsigned long long id, const DeviceInfo& info, Toolkit::smart_ptr<DeviceDriver> driver);

    unsigned long long GetId() const { return m_id; }
    Toolkit::Mutex& GetLock() const { return m_lock; }

    TString<wchar_t> GetName() const;
    DeviceInfo GetInfo() const;
    bool IsPresent() const;
    // Milliseconds connected, on the injectable clock.
    uint64_t GetConnectionTime() const;

    // Null when the device was not made through smart_ptr.
    Toolkit::smart_ptr<NetworkManager> GetNetworkManager();

    int Connect();
    int Disconnect(DisconnectReason reason);
    bool SetPower(PowerState power);

    // Backend side.
    void SetInfo(const DeviceInfo& info);
    // Cuts the device from its backend; returns the driver it had (null if
    // already detached) so the caller can release it outside the lock.
    Toolkit::smart_ptr<DeviceDriver> Detach();

private:
    Toolkit::smart_ptr<DeviceDriver> driver() const;

    const unsigned long long m_id;
    mutable Toolkit::Mutex m_lock;
    DeviceInfo m_info;
    Toolkit::smart_ptr<DeviceDriver> m_driver;
};

} // namespace Devices

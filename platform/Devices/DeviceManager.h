#pragma once
// The devices present, and the listeners that hear about them. There is
// one device manager per process; it learns of devices from discovery (it
// is the discovery listener that Instance() returns), opens them through
// the installed backend and tells its listeners.
//
// Every operation may be called from any thread. Listeners are called on
// the device's thread, without any lock of the manager held, so they may
// call back into it.
#include "Detection/DiscoveryEvent.h"
#include "Devices/Device.h"
#include "Devices/DeviceBackend.h"
#include "Devices/DeviceEvent.h"
#include "Devices/GhostDevice.h"
#include "Toolkit/Mutex.h"
#include "Toolkit/smart_ptr.h"

#include <functional>
#include <map>
#include <vector>

namespace Devices {

class DeviceManager : public Detection::DiscoveryEvent {
public:
    using DeviceMap = std::map<unsigned long long, Toolkit::smart_ptr<Device>>;

    static Toolkit::smart_ptr<DeviceManager> Instance();

    static void SetBackend(Toolkit::smart_ptr<DeviceBackend> backend);

    static void AddListener(Toolkit::smart_ptr<DeviceEvent> listener);
    // Removes the first registration of this object.
    static void RemoveListener(Toolkit::smart_ptr<DeviceEvent> listener);

    static void GetDevicesMap(DeviceMap& devices);
    // Null for an unknown identity (or 0).
    static Toolkit::smart_ptr<Device> GetDevice(unsigned long long id);
    static Toolkit::smart_ptr<GhostDevice> GetGhostDevice(unsigned long long id);
    // Lets go of a device: it leaves the map, is detached and released,
    // and listeners hear it is lost. Discovery's Refresh brings it back.
    // False for an unknown identity.
    static bool DropDevice(unsigned long long id);

    // Backend side: calls every listener with the device, if the manager
    // still holds it; false when the device is gone.
    static bool Notify(unsigned long long id, const std::function<void(DeviceEvent&, Device&)>& call);

    void OnDeviceArrived(unsigned long long id) override;
    void OnDeviceRemoved(unsigned long long id) override;
    void OnGhostArrived(unsigned long long id, const TString<wchar_t>& name) override;
    void OnGhostRemoved(unsigned long long id) override;

private:
    std::vector<Toolkit::smart_ptr<DeviceEvent>> listeners() const;
    Toolkit::smart_ptr<Device> take(unsigned long long id);

    mutable Toolkit::Mutex m_lock; // guards everything below
    Toolkit::smart_ptr<DeviceBackend> m_backend;
    std::vector<Toolkit::smart_ptr<DeviceEvent>> m_listeners;
    DeviceMap m_devices;
    std::map<unsigned long long, Toolkit::smart_ptr<GhostDevice>> m_ghosts;
};

} // namespace Devices

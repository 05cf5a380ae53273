#include "Devices/Device.h"

#include "Devices/NetworkManager.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/TickCount.h"

namespace Devices {

Device::Device(unsigned long long id, const DeviceInfo& info, Toolkit::smart_ptr<DeviceDriver> driver)
    : m_id(id), m_info(info), m_driver(std::move(driver))
{
}

TString<wchar_t> Device::GetName() const
{
    Toolkit::MutexLocker lock(m_lock);
    return m_info.name;
}

DeviceInfo Device::GetInfo() const
{
    Toolkit::MutexLocker lock(m_lock);
    return m_info;
}

bool Device::IsPresent() const
{
    Toolkit::MutexLocker lock(m_lock);
    return bool(m_driver);
}

uint64_t Device::GetConnectionTime() const
{
    return GetInfo().ConnectionTime(Toolkit::GetTickCount());
}

Toolkit::smart_ptr<NetworkManager> Device::GetNetworkManager()
{
    auto self = weak_from_this();
    if (self.expired())
        return {};
    return Toolkit::make_smart<NetworkManager>(std::move(self));
}

Toolkit::smart_ptr<DeviceDriver> Device::driver() const
{
    Toolkit::MutexLocker lock(m_lock);
    if (!m_driver)
        TK_LOG(Toolkit::LogError) << "device " << m_id << " is gone";
    return m_driver;
}

// The driver is called without the device's lock: it may report back to
// listeners, which read the device from other threads.
int Device::Connect()
{
    const auto d = driver();
    return d ? d->Connect() : -1;
}

int Device::Disconnect(DisconnectReason reason)
{
    const auto d = driver();
    return d ? d->Disconnect(reason) : -1;
}

bool Device::SetPower(PowerState power)
{
    const auto d = driver();
    return d && d->SetPower(power);
}

void Device::SetInfo(const DeviceInfo& info)
{
    Toolkit::MutexLocker lock(m_lock);
    m_info = info;
}

Toolkit::smart_ptr<DeviceDriver> Device::Detach()
{
    Toolkit::MutexLocker lock(m_lock);
    auto d = std::move(m_driver);
    m_driver.reset();
    return d;
}

} // namespace Devices

#include "Devices/DeviceManager.h"

#include "Toolkit/ILogger.h"

namespace Devices {

Toolkit::smart_ptr<DeviceManager> DeviceManager::Instance()
{
    static const auto instance = Toolkit::make_smart<DeviceManager>();
    return instance;
}

void DeviceManager::SetBackend(Toolkit::smart_ptr<DeviceBackend> backend)
{
    auto self = Instance();
    Toolkit::MutexLocker lock(self->m_lock);
    self->m_backend = std::move(backend);
}

void DeviceManager::AddListener(Toolkit::smart_ptr<DeviceEvent> listener)
{
    if (!listener)
        return;
    auto self = Instance();
    Toolkit::MutexLocker lock(self->m_lock);
    self->m_listeners.push_back(std::move(listener));
}

void DeviceManager::RemoveListener(Toolkit::smart_ptr<DeviceEvent> listener)
{
    auto self = Instance();
    Toolkit::MutexLocker lock(self->m_lock);
    auto& l = self->m_listeners;
    for (auto it = l.begin(); it != l.end(); ++it)
        if (*it == listener) {
            l.erase(it);
            return;
        }
}

void DeviceManager::GetDevicesMap(DeviceMap& devices)
{
    auto self = Instance();
    Toolkit::MutexLocker lock(self->m_lock);
    devices = self->m_devices;
}

Toolkit::smart_ptr<Device> DeviceManager::GetDevice(unsigned long long id)
{
    auto self = Instance();
    Toolkit::MutexLocker lock(self->m_lock);
    const auto it = self->m_devices.find(id);
    return it == self->m_devices.end() ? Toolkit::smart_ptr<Device>() : it->second;
}

Toolkit::smart_ptr<GhostDevice> DeviceManager::GetGhostDevice(unsigned long long id)
{
    auto self = Instance();
    Toolkit::MutexLocker lock(self->m_lock);
    const auto it = self->m_ghosts.find(id);
    return it == self->m_ghosts.end() ? Toolkit::smart_ptr<GhostDevice>() : it->second;
}

std::vector<Toolkit::smart_ptr<DeviceEvent>> DeviceManager::listeners() const
{
    Toolkit::MutexLocker lock(m_lock);
    return m_listeners;
}

Toolkit::smart_ptr<Device> DeviceManager::take(unsigned long long id)
{
    Toolkit::MutexLocker lock(m_lock);
    const auto it = m_devices.find(id);
    if (it == m_devices.end())
        return {};
    auto device = it->second;
    m_devices.erase(it);
    return device;
}

bool DeviceManager::DropDevice(unsigned long long id)
{
    auto self = Instance();
    const auto device = self->take(id);
    if (!device)
        return false;
    TK_LOG(Toolkit::LogInfo) << "device " << id << " dropped";
    if (const auto driver = device->Detach())
        driver->Release();
    for (const auto& l : self->listeners())
        l->OnDeviceLost(*device);
    return true;
}

bool DeviceManager::Notify(unsigned long long id, const std::function<void(DeviceEvent&, Device&)>& call)
{
    auto self = Instance();
    const auto device = GetDevice(id);
    if (!device)
        return false;
    for (const auto& l : self->listeners())
        call(*l, *device);
    return true;
}

void DeviceManager::OnDeviceArrived(unsigned long long id)
{
    Toolkit::smart_ptr<DeviceBackend> backend;
    {
        Toolkit::MutexLocker lock(m_lock);
        if (m_devices.count(id))
            return;
        backend = m_backend;
    }
    const auto device = backend ? backend->Open(id) : Toolkit::smart_ptr<Device>();
    if (!device) {
        TK_LOG(Toolkit::LogError) << "device " << id << " was reported but cannot be opened";
        return;
    }
    {
        Toolkit::MutexLocker lock(m_lock);
        m_devices[id] = device;
    }
    TK_LOG(Toolkit::LogInfo) << "device " << id << " found: " << device->GetName();
    for (const auto& l : listeners())
        l->OnDeviceFound(*device);
}

void DeviceManager::OnDeviceRemoved(unsigned long long id)
{
    const auto device = take(id);
    if (!device)
        return;
    device->Detach();
    TK_LOG(Toolkit::LogInfo) << "device " << id << " lost";
    for (const auto& l : listeners())
        l->OnDeviceLost(*device);
}

void DeviceManager::OnGhostArrived(unsigned long long id, const TString<wchar_t>& name)
{
    const auto ghost = Toolkit::make_smart<GhostDevice>(id, name);
    {
        Toolkit::MutexLocker lock(m_lock);
        if (!m_ghosts.emplace(id, ghost).second)
            return;
    }
    for (const auto& l : listeners())
        l->OnGhostDeviceFound(*ghost);
}

void DeviceManager::OnGhostRemoved(unsigned long long id)
{
    Toolkit::smart_ptr<GhostDevice> ghost;
    {
        Toolkit::MutexLocker lock(m_lock);
        const auto it = m_ghosts.find(id);
        if (it == m_ghosts.end())
            return;
        ghost = it->second;
        m_ghosts.erase(it);
    }
    for (const auto& l : listeners())
        l->OnGhostDeviceLost(*ghost);
}

} // namespace Devices

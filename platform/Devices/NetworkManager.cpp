#include "Devices/NetworkManager.h"

#include "Devices/Device.h"

namespace Devices {

bool NetworkManager::IsActive() const
{
    const auto device = m_device.lock();
    if (!device || !device->IsPresent())
        return false;
    return device->GetInfo().power == PowerOn;
}

DeviceState NetworkManager::GetState() const
{
    const auto device = m_device.lock();
    return device && device->IsPresent() ? device->GetInfo().state : DeviceStateUnknown;
}

int NetworkManager::Connect()
{
    const auto device = m_device.lock();
    return device ? device->Connect() : -1;
}

int NetworkManager::Disconnect(DisconnectReason reason)
{
    const auto device = m_device.lock();
    return device ? device->Disconnect(reason) : -1;
}

} // namespace Devices

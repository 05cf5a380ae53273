#pragma once
// What a connection manager shows about a device, as one snapshot.
#include "Devices/DeviceEvent.h"
#include "Devices/ModemEnums.h"
#include "Toolkit/TString.h"

#include <cstdint>

namespace Devices {

struct DeviceInfo {
    TString<wchar_t> name;
    TString<wchar_t> manufacturer;
    TString<wchar_t> model;
    TString<char> imei;
    TString<char> port;              // the control port, "ttyUSB2" for instance
    TString<wchar_t> operatorName;   // empty while not registered
    unsigned int signalQuality = 0;  // percent
    unsigned int accessTechnology = AccessUnknown; // AccessTechnology bits
    RegistrationState registration = RegistrationIdle;
    DeviceState state = DeviceStateUnknown;
    PowerState power = PowerUnknown;
    LockKind lock = LockUnknown;
    unsigned int pinAttempts = c_attemptsUnknown;
    unsigned int pukAttempts = c_attemptsUnknown;
    unsigned int features = FeatureNone; // UsedFeatures bits
    uint64_t bytesSent = 0;
    uint64_t bytesReceived = 0;
    uint64_t connectedSince = 0;     // tick of the connection, 0 when not connected

    bool IsRoaming() const { return Devices::IsRoaming(registration); }
    bool IsConnected() const { return state == DeviceStateConnected; }
    // Milliseconds connected at the given tick; 0 when not connected.
    uint64_t ConnectionTime(uint64_t now) const
    {
        return IsConnected() && now > connectedSince ? now - connectedSince : 0;
    }
};

} // namespace Devices

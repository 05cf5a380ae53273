#pragma once
// What a connection manager shows about a device, as one snapshot.
#include "Devices/DeviceEvent.h"
#include "Devices/ModemEnums.h"
#include "Toolkit/TString.h"

#include <cstdint>

namespace Devices {

// Why the last attempt to open a data connection failed; None once one opens.
enum ConnectionError : int {
    ConnectionErrorNone = 0,
    ConnectionErrorDenied = 1,    // the network refused it (subscription, access point)
    ConnectionErrorNoService = 2, // no network to carry data here
    ConnectionErrorTimeout = 3,   // the network did not answer in time
};

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
    ConnectionError connectionError = ConnectionErrorNone;

    bool IsRoaming() const { return Devices::IsRoaming(registration); }
    bool IsConnected() const { return state == DeviceStateConnected; }
    // Milliseconds connected at the given tick; 0 when not connected.
    uint64_t ConnectionTime(uint64_t now) const
    {
        return IsConnected() && now > connectedSince ? now - connectedSince : 0;
    }
};

} // namespace Devices

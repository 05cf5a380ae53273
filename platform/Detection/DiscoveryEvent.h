#pragma once
// What discovery reports: devices that appear on or leave the machine. A
// device is named by a 64-bit identity that stays the same when it is
// plugged in again; a ghost is something that looks like a device but
// cannot be used (no usable port, unsupported mode).
//
// Calls arrive on the discovery source's own threads; a listener returns
// promptly and never waits for another thread that may itself be reporting.
#include "Toolkit/TString.h"

namespace Detection {

class DiscoveryEvent {
public:
    virtual ~DiscoveryEvent() = default;

    virtual void OnDeviceArrived(unsigned long long /*id*/) {}
    virtual void OnDeviceRemoved(unsigned long long /*id*/) {}
    virtual void OnGhostArrived(unsigned long long /*id*/, const TString<wchar_t>& /*name*/) {}
    virtual void OnGhostRemoved(unsigned long long /*id*/) {}
};

} // namespace Detection

#pragma once
// What the connection screens show, worked out from the selected device and
// from what the user asked for. Each view is a sequence of the navigation
// with one screen; the pack's global rows lead to it by the view's event id.
#include "Devices/DeviceInfo.h"

namespace homeplugin {

enum class View { NoDevice, DeviceInit, UnknownDevice, Ready, Connecting, Connected, Disconnecting, ConnectionError };

// Why the last connection attempt failed, as the error screen tells it.
enum class Failure { None, DeviceNotReady, Denied, NoService, Timeout, DeviceFailed };

// What the user asked of the device and it has not yet answered.
enum class Pending { None, Connect, Disconnect };

struct DeviceSnapshot {
    bool present = false;      // a device is selected
    bool ghost = false;        // something that is not a usable device is plugged in
    Devices::DeviceInfo info;  // the selected device's, when present
    Pending pending = Pending::None;
    Failure failure = Failure::None;
};

View ViewOf(const DeviceSnapshot& snapshot);

struct ViewRoute {
    View view;
    int eventId;               // the global row's id in the pack
    const wchar_t* sequence;   // also the sequence's only state's name
    const wchar_t* screen;
    const wchar_t* transition;
};

const ViewRoute& RouteOf(View view);
// The route whose sequence has this name; null for another sequence.
const ViewRoute* RouteOfSequence(const TString<wchar_t>& sequence);

// The string key of a failure's explanation.
const char* FailureText(Failure failure);
Failure FailureOf(Devices::ConnectionError error);

} // namespace homeplugin

#include "ConnectionView.h"

#include <iterator>

namespace homeplugin {
namespace {

// The ids are those of the global rows in home.xml.
const ViewRoute c_routes[] = {
    {View::NoDevice, 9001, L"NoDevice", L"NoDeviceScreen", L"TNoDevice"},
    {View::DeviceInit, 9002, L"DeviceInit", L"DeviceInitScreen", L"TDeviceInit"},
    {View::UnknownDevice, 9003, L"UnknownDevice", L"UnknownDeviceScreen", L"TUnknownDevice"},
    {View::Ready, 9004, L"Home", L"HomeScreen", L"THome"},
    {View::Connecting, 9005, L"Connecting", L"ConnectingScreen", L"TConnecting"},
    {View::Connected, 9006, L"Connected", L"ConnectedScreen", L"TConnected"},
    {View::Disconnecting, 9007, L"Disconnecting", L"DisconnectingScreen", L"TDisconnecting"},
    {View::ConnectionError, 9008, L"ConnectionError", L"ConnectionErrorScreen", L"TConnectionError"},
};

View deviceView(const DeviceSnapshot& s)
{
    switch (s.info.state) {
    case Devices::DeviceStateConnecting: return View::Connecting;
    case Devices::DeviceStateConnected: return s.pending == Pending::Disconnect ? View::Disconnecting : View::Connected;
    case Devices::DeviceStateDisconnecting: return View::Disconnecting;
    case Devices::DeviceStateDisabled:
    case Devices::DeviceStateEnabled:
    case Devices::DeviceStateSearching:
    case Devices::DeviceStateRegistered:
        return s.pending == Pending::Connect ? View::Connecting : View::Ready;
    default: return View::DeviceInit; // still starting, or waiting for its SIM code
    }
}

} // namespace

View ViewOf(const DeviceSnapshot& s)
{
    if (!s.present)
        return s.ghost ? View::UnknownDevice : View::NoDevice;
    if (s.info.state == Devices::DeviceStateFailed || s.failure != Failure::None)
        return View::ConnectionError;
    return deviceView(s);
}

const ViewRoute& RouteOf(View view)
{
    return c_routes[int(view)];
}

const ViewRoute* RouteOfSequence(const TString<wchar_t>& sequence)
{
    for (const auto& route : c_routes)
        if (sequence == route.sequence)
            return &route;
    return nullptr;
}

const char* FailureText(Failure failure)
{
    switch (failure) {
    case Failure::DeviceNotReady: return "LB_CONN_ERROR_NOT_READY";
    case Failure::Denied: return "LB_CONN_ERROR_DENIED";
    case Failure::NoService: return "LB_CONN_ERROR_NO_SERVICE";
    case Failure::Timeout: return "LB_CONN_ERROR_TIMEOUT";
    case Failure::DeviceFailed: return "LB_CONN_ERROR_DEVICE_FAILED";
    case Failure::None: break;
    }
    return "LB_CONN_ERROR_UNKNOWN";
}

Failure FailureOf(Devices::ConnectionError error)
{
    switch (error) {
    case Devices::ConnectionErrorDenied: return Failure::Denied;
    case Devices::ConnectionErrorNoService: return Failure::NoService;
    case Devices::ConnectionErrorTimeout: return Failure::Timeout;
    case Devices::ConnectionErrorNone: break;
    }
    return Failure::None;
}

} // namespace homeplugin

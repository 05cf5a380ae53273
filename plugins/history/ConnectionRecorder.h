#pragma once
// Listens to the devices and makes a history entry each time a data
// connection ends (the device says it is no longer connected, or it goes
// away while connected). Callbacks arrive on the devices' threads: the
// entry is handed to the sink there, which must pass it on to the GUI
// thread before anything touches the store or a window.
#include "ConnectionHistory.h"

#include "Devices/DeviceEvent.h"
#include "Devices/DeviceInfo.h"
#include "Toolkit/Mutex.h"

#include <functional>
#include <map>

namespace historyplugin {

class ConnectionRecorder : public Devices::DeviceEvent {
public:
    using Sink = std::function<void(const HistoryEntry&)>;

    explicit ConnectionRecorder(Sink sink) : m_sink(std::move(sink)) {}

    // No entry reaches the sink after this returns.
    void Detach();

    void OnDeviceUpdated(Devices::Device& device) override;
    void OnDeviceLost(Devices::Device& device) override;

private:
    // What a connection looked like when last seen connected.
    struct Session {
        uint64_t connectedSince = 0;
        uint64_t bytesSent = 0;
        uint64_t bytesReceived = 0;
        TString<wchar_t> device;
    };

    void observe(Devices::Device& device, bool present);
    void finish(const Session& session);

    Toolkit::Mutex m_lock; // guards everything below
    Sink m_sink;
    std::map<unsigned long long, Session> m_sessions;
};

} // namespace historyplugin

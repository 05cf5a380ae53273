#include "ConnectionRecorder.h"

#include "Devices/Device.h"
#include "Toolkit/DateTime.h"
#include "Toolkit/TickCount.h"

#include <algorithm>

namespace historyplugin {

void ConnectionRecorder::Detach()
{
    Toolkit::MutexLocker lock(m_lock);
    m_sink = nullptr;
}

void ConnectionRecorder::OnDeviceUpdated(Devices::Device& device)
{
    observe(device, true);
}

void ConnectionRecorder::OnDeviceLost(Devices::Device& device)
{
    observe(device, false);
}

void ConnectionRecorder::observe(Devices::Device& device, bool present)
{
    const Devices::DeviceInfo info = device.GetInfo();
    Toolkit::MutexLocker lock(m_lock);
    const auto known = m_sessions.find(device.GetId());
    if (present && info.IsConnected()) {
        Session& session = m_sessions[device.GetId()];
        // A new connection since the last update closes the one before.
        if (known != m_sessions.end() && session.connectedSince != info.connectedSince) {
            finish(session);
            session = Session();
        }
        session.connectedSince = info.connectedSince;
        // The counters may restart when the connection does; the highest seen counts.
        session.bytesSent = std::max(session.bytesSent, info.bytesSent);
        session.bytesReceived = std::max(session.bytesReceived, info.bytesReceived);
        session.device = device.GetName();
        return;
    }
    if (known == m_sessions.end())
        return;
    Session session = known->second;
    session.bytesSent = std::max(session.bytesSent, info.bytesSent);
    session.bytesReceived = std::max(session.bytesReceived, info.bytesReceived);
    m_sessions.erase(known);
    finish(session);
}

void ConnectionRecorder::finish(const Session& session)
{
    if (!m_sink)
        return;
    const uint64_t now = Toolkit::GetTickCount();
    HistoryEntry entry;
    entry.durationSeconds = now > session.connectedSince ? (now - session.connectedSince) / 1000 : 0;
    entry.start = Toolkit::DateTime().Remove(0, 0, 0, unsigned(entry.durationSeconds)).Format();
    entry.bytesSent = session.bytesSent;
    entry.bytesReceived = session.bytesReceived;
    entry.device = session.device;
    m_sink(entry);
}

} // namespace historyplugin

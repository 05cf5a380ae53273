#include "ConnectionWatcher.h"

#include "ConnectionScreen.h"

#include "Toolkit/TickCount.h"
#include "device/DCControler.h"
#include "device/DeviceEvent.h"
#include "navigation/Sequence.h"
#include "navigation/SequenceManager.h"
#include "popups/NotifPopupManager.h"
#include "util/Util.h"


namespace homeplugin {

ConnectionWatcher* ConnectionWatcher::s_current = nullptr;

ConnectionWatcher::ConnectionWatcher()
{
    using UIKit::DCControler;
    for (const wxEventType type : {DCControler::EVT_DEVICE_FOUND, DCControler::EVT_DEVICE_LOST,
                                   DCControler::EVT_DEVICE_UPDATED, DCControler::EVT_DEVICE_INFO})
        Bind(wxEventTypeTag<wxCommandEvent>(type), &ConnectionWatcher::onDeviceEvent, this);
    for (const wxEventType type : {DCControler::EVT_DEVICE_GHOST_FOUND, DCControler::EVT_DEVICE_GHOST_LOST})
        Bind(wxEventTypeTag<wxCommandEvent>(type), &ConnectionWatcher::onGhost, this);
    if (auto controller = DCControler::Instance())
        controller->AddListener(this);
    s_current = this;
    read();
}

ConnectionWatcher::~ConnectionWatcher()
{
    if (auto controller = UIKit::DCControler::Instance())
        controller->RemoveListener(this);
    if (s_current == this)
        s_current = nullptr;
}

void ConnectionWatcher::onDeviceEvent(wxCommandEvent& /*event*/)
{
    Refresh();
}

void ConnectionWatcher::onGhost(wxCommandEvent& event)
{
    const auto* ghost = dynamic_cast<UIKit::DeviceEvent*>(&event);
    if (!ghost)
        return;
    if (event.GetEventType() == UIKit::DCControler::EVT_DEVICE_GHOST_FOUND)
        m_ghosts.insert(ghost->GetDeviceId());
    else
        m_ghosts.erase(ghost->GetDeviceId());
    Refresh();
}

void ConnectionWatcher::read()
{
    auto controller = UIKit::DCControler::Instance();
    const auto device = controller ? controller->GetSelectedDevice() : Toolkit::smart_ptr<Devices::Device>();
    m_snapshot.present = device && device->IsPresent();
    m_snapshot.info = m_snapshot.present ? device->GetInfo() : Devices::DeviceInfo{};
    m_snapshot.ghost = !m_ghosts.empty();
}

void ConnectionWatcher::Refresh()
{
    const Devices::DeviceInfo before = m_snapshot.info;
    const bool wasPresent = m_snapshot.present;
    const bool wasOpening = m_snapshot.pending == Pending::Connect;
    read();
    auto& s = m_snapshot;
    const auto state = s.info.state;
    if (!s.present) {
        s.pending = Pending::None;
        s.failure = Failure::None;
    } else {
        // A refusal answers the attempt made since the error was cleared.
        const bool attempt = s.pending == Pending::Connect || before.state == Devices::DeviceStateConnecting;
        if (attempt && state == Devices::DeviceStateRegistered && s.info.connectionError != Devices::ConnectionErrorNone)
            s.failure = FailureOf(s.info.connectionError);
        if (s.pending == Pending::Connect && state != Devices::DeviceStateRegistered)
            s.pending = Pending::None;
        if (s.pending == Pending::Disconnect && state != Devices::DeviceStateConnected)
            s.pending = Pending::None;
        if (s.failure != Failure::None && state == Devices::DeviceStateConnected)
            s.failure = Failure::None; // connected after all
    }
    notice(before, wasPresent, wasOpening);
    Navigate();
    ConnectionScreen::RefreshShown();
}

bool ConnectionWatcher::Connect()
{
    auto controller = UIKit::DCControler::Instance();
    const auto device = controller ? controller->GetSelectedDevice() : Toolkit::smart_ptr<Devices::Device>();
    Refresh(); // what the device says now, not at the last event
    if (!device || CurrentView() != View::Ready || m_snapshot.info.state != Devices::DeviceStateRegistered)
        return false;
    m_snapshot.pending = Pending::Connect;
    if (device->Connect() != 0) {
        m_snapshot.pending = Pending::None;
        m_snapshot.failure = Failure::DeviceNotReady;
    }
    Navigate();
    ConnectionScreen::RefreshShown();
    return true;
}

bool ConnectionWatcher::Disconnect()
{
    auto controller = UIKit::DCControler::Instance();
    const auto device = controller ? controller->GetSelectedDevice() : Toolkit::smart_ptr<Devices::Device>();
    const View view = CurrentView();
    if (!device || (view != View::Connecting && view != View::Connected))
        return false;
    const bool open = m_snapshot.info.state == Devices::DeviceStateConnected;
    m_snapshot.pending = open ? Pending::Disconnect : Pending::None;
    device->Disconnect(Devices::DisconnectByUser);
    Navigate();
    ConnectionScreen::RefreshShown();
    return true;
}

void ConnectionWatcher::Dismiss()
{
    m_snapshot.failure = Failure::None;
    Navigate();
}

void ConnectionWatcher::Navigate()
{
    auto sequences = UIKit::SequenceManager::Instance();
    if (!sequences)
        return;
    const ViewRoute& route = RouteOf(CurrentView());
    const auto current = sequences->GetCurrentSequence();
    if (current && (!RouteOfSequence(current->GetName()) || current->GetName() == route.sequence))
        return;
    sequences->DoEvent(UIKit::SequenceManager::c_strAny, UIKit::SequenceManager::c_strAny, route.eventId, nullptr);
}

// What changed since the last reading, told as notifications.
void ConnectionWatcher::notice(const Devices::DeviceInfo& before, bool wasPresent, bool wasOpening)
{
    const auto& now = m_snapshot.info;
    const bool present = m_snapshot.present;
    const bool wasConnected = wasPresent && before.IsConnected();
    const bool connected = present && now.IsConnected();
    const auto busy = [](const Devices::DeviceInfo& i) {
        return i.IsConnected() || i.state == Devices::DeviceStateConnecting;
    };
    if (present)
        m_lostWhileConnected = false;
    else if (wasPresent && (wasOpening || busy(before)))
        m_lostWhileConnected = true;
    if (connected && !m_sessionMs)
        popup("LB_POPUP_CONNECTED", now.operatorName);
    if (connected)
        m_sessionMs = now.ConnectionTime(Toolkit::GetTickCount());
    if (wasConnected && !connected && m_sessionMs) {
        TString<wchar_t> duration;
        UIKit::Util::FormatDuration(duration, *m_sessionMs);
        m_sessionMs.reset();
        popup("LB_POPUP_DISCONNECTED", duration);
    }
    if (present && now.IsRoaming() && !(wasPresent && before.IsRoaming()))
        popup("LB_POPUP_ROAMING", now.operatorName);
}

void ConnectionWatcher::popup(const char* key, const TString<wchar_t>& value)
{
    if (const auto popups = UIKit::Singleton<UIKit::NotifPopupManager>::Instance())
        popups->AddTextWindow(key, value);
}

} // namespace homeplugin

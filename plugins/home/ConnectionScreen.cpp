#include "ConnectionScreen.h"

#include "ConnectionWatcher.h"

#include "Toolkit/TickCount.h"
#include "appearance/Appearance.h"
#include "controls/ProgressBarCtrl.h"
#include "factory/ControlIds.h"
#include "frames/IDashboard.h"
#include "util/Util.h"

namespace homeplugin {
namespace {

TString<wchar_t> text(const char* key)
{
    auto appearance = UIKit::Appearance::Instance();
    return appearance ? appearance->GetStr(TString<char>(key)) : TString<wchar_t>();
}

// The technology's usual name; the newest one when a modem reports several.
const wchar_t* technologyName(unsigned int bits)
{
    static const std::pair<unsigned int, const wchar_t*> names[] = {
        {Devices::Access5gNr, L"5G"},        {Devices::AccessLte, L"4G LTE"}, {Devices::AccessHspaPlus, L"3G+ HSPA+"},
        {Devices::AccessHspa, L"3G+ HSPA"},  {Devices::AccessHsupa, L"3G+ HSUPA"},
        {Devices::AccessHsdpa, L"3G+ HSDPA"}, {Devices::AccessUmts, L"3G UMTS"}, {Devices::AccessEdge, L"2G EDGE"},
        {Devices::AccessGprs, L"2G GPRS"},   {Devices::AccessGsm, L"2G GSM"},
    };
    for (const auto& [bit, name] : names)
        if (bits & bit)
            return name;
    return L"";
}

const char* operatorKey(const Devices::DeviceInfo& info)
{
    if (info.power == Devices::PowerLow || info.state == Devices::DeviceStateDisabled)
        return "LB_CONN_RADIO_OFF";
    return info.operatorName.empty() ? "LB_CONN_SEARCHING" : nullptr;
}

} // namespace

ConnectionScreen::ConnectionScreen(wxWindow* parent, int id, const wxRect& bounds)
    : ScreenCtrl(parent, id, bounds, false), m_clock(this)
{
    Bind(wxEVT_TIMER, [this](wxTimerEvent&) { fill(); }, m_clock.GetId());
}

bool ConnectionScreen::DoEvent(int id)
{
    auto* watcher = ConnectionWatcher::Current();
    if (!watcher || (id != UIKit::ID_CONNECT && id != UIKit::ID_DISCONNECT))
        return ScreenCtrl::DoEvent(id);
    if (id == UIKit::ID_DISCONNECT)
        return watcher->Disconnect();
    if (watcher->CurrentView() == View::ConnectionError)
        watcher->Dismiss(); // Try again
    return watcher->Connect();
}

void ConnectionScreen::OnOK(wxCommandEvent& /*event*/)
{
    if (auto* watcher = ConnectionWatcher::Current())
        watcher->Dismiss();
}

void ConnectionScreen::OnCancel(wxCommandEvent& /*event*/)
{
    if (auto* watcher = ConnectionWatcher::Current())
        watcher->Disconnect();
}

bool ConnectionScreen::current() const
{
    auto* watcher = ConnectionWatcher::Current();
    return watcher && GetDescriptor() && GetDescriptor()->GetClass() == RouteOf(watcher->CurrentView()).screen;
}

void ConnectionScreen::ScreenSlideEnter()
{
    ScreenCtrl::ScreenSlideEnter();
    if (!current()) {
        // After the navigation that showed this screen has finished.
        CallAfter([] {
            if (auto* watcher = ConnectionWatcher::Current())
                watcher->Navigate();
        });
        return;
    }
    fill();
    m_clock.Start(1000);
}

void ConnectionScreen::ScreenSlideLeave()
{
    m_clock.Stop();
    ScreenCtrl::ScreenSlideLeave();
}

void ConnectionScreen::RefreshShown()
{
    auto* dashboard = UIKit::IDashboard::s_pCurrent;
    auto* screen = dynamic_cast<ConnectionScreen*>(dashboard ? dashboard->GetCurrentRunningScreen() : nullptr);
    if (screen && screen->current())
        screen->fill();
}

void ConnectionScreen::fill()
{
    auto* watcher = ConnectionWatcher::Current();
    if (!watcher)
        return;
    const DeviceSnapshot& s = watcher->Snapshot();
    fillDevice(s);
    fillConnection(s);
    setText(L"Notice", watcher->LostWhileConnected() ? text("LB_CONN_LOST_NOTICE") : TString<wchar_t>());
}

void ConnectionScreen::fillDevice(const DeviceSnapshot& s)
{
    const auto& info = s.info;
    setText(L"DeviceName", info.name);
    const char* key = operatorKey(info);
    setText(L"Operator", key ? text(key) : info.operatorName);
    setText(L"Technology", key ? TString<wchar_t>() : TString<wchar_t>(technologyName(info.accessTechnology)));
    if (auto* signal = UIKit::Util::FindControl<UIKit::ProgressBarCtrl>(this, L"Signal", true))
        signal->SetValues(0, key ? 0 : (info.signalQuality + 24) / 25, 4);
    UIKit::Util::ShowWindow(this, TString<wchar_t>(L"Roaming"), s.present && info.IsRoaming(), true);
    UIKit::Util::EnableWindow(this, UIKit::ID_CONNECT,
                              info.state == Devices::DeviceStateRegistered && s.pending == Pending::None);
}

void ConnectionScreen::fillConnection(const DeviceSnapshot& s)
{
    TString<wchar_t> value;
    UIKit::Util::FormatDuration(value, s.info.ConnectionTime(Toolkit::GetTickCount()));
    setText(L"Duration", value);
    UIKit::Util::FormatDataVolume(value, s.info.bytesSent);
    setText(L"Sent", value);
    UIKit::Util::FormatDataVolume(value, s.info.bytesReceived);
    setText(L"Received", value);
    const Failure failure = s.failure == Failure::None && s.info.state == Devices::DeviceStateFailed
                                ? Failure::DeviceFailed
                                : s.failure;
    setText(L"Reason", text(FailureText(failure)));
}

void ConnectionScreen::setText(const wchar_t* control, const TString<wchar_t>& value)
{
    TString<wchar_t> shown;
    if (UIKit::Util::GetWindowLabel(this, TString<wchar_t>(control), shown) && shown != value)
        UIKit::Util::SetWindowLabel(this, TString<wchar_t>(control), value);
}

} // namespace homeplugin

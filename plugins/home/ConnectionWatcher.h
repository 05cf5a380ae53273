#pragma once
// Follows the selected device for the connection screens, on the GUI
// thread: it hears the device controller's events, works out the view the
// device calls for, and moves the navigation there through the pack's
// global rows, unless the user is elsewhere (another area, or a screen
// that asks about the device), in which case the view is taken up when
// the user comes back. It carries out Connect and Disconnect through the
// device, and puts up the connected, disconnected and roaming
// notifications. (The history plug-in records the sessions.)
#include "ConnectionView.h"

#include <wx/event.h>

#include <cstdint>
#include <optional>
#include <set>

namespace homeplugin {

class ConnectionWatcher : public wxEvtHandler {
public:
    ConnectionWatcher();
    ~ConnectionWatcher() override;

    // The watcher of the loaded plug-in, null when there is none.
    static ConnectionWatcher* Current() { return s_current; }

    const DeviceSnapshot& Snapshot() const { return m_snapshot; }
    View CurrentView() const { return ViewOf(m_snapshot); }
    // Set when the device went away while a connection was open or opening.
    bool LostWhileConnected() const { return m_lostWhileConnected; }

    // The user's requests; false when the device is not in a state to
    // take them (a second Connect while one is under way does nothing).
    bool Connect();
    bool Disconnect();
    // The user read the error: back to what the device shows.
    void Dismiss();
    // Shows the view the device calls for, if the user is in the
    // connection area (or nowhere yet).
    void Navigate();
    // Reads the device again and shows what changed.
    void Refresh();

private:
    void onDeviceEvent(wxCommandEvent& event);
    void onGhost(wxCommandEvent& event);
    void read();
    void notice(const Devices::DeviceInfo& before, bool wasPresent, bool wasOpening);
    void popup(const char* key, const TString<wchar_t>& value);

    static ConnectionWatcher* s_current;
    DeviceSnapshot m_snapshot;
    std::set<unsigned long long> m_ghosts;
    bool m_lostWhileConnected = false;
    // How long the open session has lasted, for the disconnected notice;
    // empty while no connection is open.
    std::optional<uint64_t> m_sessionMs;
};

} // namespace homeplugin

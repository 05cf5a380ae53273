#pragma once
// Every screen of the connection area (no device, starting, unknown device,
// ready, connecting, connected, disconnecting, error) is one of these: the
// pack decides which of the named fields a screen has, and the screen fills
// those it has from the watcher's reading of the device. Connect,
// Disconnect, Cancel (while connecting) and OK (on an error) go to the
// watcher; every other button navigates.
#include "navigation/ScreenCtrl.h"

#include <wx/timer.h>

namespace homeplugin {

struct DeviceSnapshot;

class ConnectionScreen : public UIKit::ScreenCtrl {
public:
    ConnectionScreen(wxWindow* parent, int id, const wxRect& bounds);

    bool DoEvent(int id) override;
    void OnOK(wxCommandEvent& event) override;
    void OnCancel(wxCommandEvent& event) override;
    // Fills the fields, or, when the device has moved on while the screen
    // was away, lets the watcher show the right one.
    void ScreenSlideEnter() override;
    void ScreenSlideLeave() override;

    // Fills the connection screen on show again (GUI thread).
    static void RefreshShown();

private:
    void fill();
    void fillDevice(const DeviceSnapshot& snapshot);
    void fillConnection(const DeviceSnapshot& snapshot);
    void setText(const wchar_t* control, const TString<wchar_t>& text);
    bool current() const;

    // The connected screen counts the time every second even when the
    // device says nothing new.
    wxTimer m_clock;
};

} // namespace homeplugin

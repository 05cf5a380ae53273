#include "DeviceTour.h"

#include "DeviceWiring.h"
#include "TourSupport.h"

#include "appearance/Appearance.h"
#include "device/DCControler.h"
#include "factory/ControlIds.h"
#include "frames/IDashboard.h"
#include "navigation/ScreenCtrl.h"
#include "navigation/SequenceManager.h"
#include "popups/NotifPopupManager.h"
#include "popups/WinNotifPopup.h"
#include "util/Util.h"

#include <wx/filename.h>
#include <wx/timer.h>
#include <wx/toplevel.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

namespace host {
namespace {

#ifndef UIKIT_DEFAULT_SCENARIO_FILE
#define UIKIT_DEFAULT_SCENARIO_FILE ""
#endif

// The tour scenario's first modem: its right codes, and a wrong PIN.
const wchar_t* const c_wrongPin = L"0000";
const wchar_t* const c_puk = L"12345678";
const wchar_t* const c_newPin = L"1234";
// A step that waits longer than this is skipped: the scenario went another way.
constexpr std::chrono::seconds c_stepLimit{70};

struct Shot {
    const char* file;
    std::function<bool()> ready;        // on show now
    std::function<void()> answer;       // then, as the user would (may be empty)
};

UIKit::ScreenCtrl* shownScreen(const wchar_t* screen)
{
    auto* dashboard = UIKit::IDashboard::s_pCurrent;
    auto* current = dashboard ? dashboard->GetCurrentRunningScreen() : nullptr;
    return current && current->IsShown() && current->GetDescriptor()->GetClass() == screen ? current : nullptr;
}

void type(const wchar_t* box, const wchar_t* code, UIKit::ScreenCtrl* screen)
{
    UIKit::Util::SetWindowLabel(screen, TString<wchar_t>(box), code);
}

void press(int id, UIKit::ScreenCtrl* screen)
{
    wxCommandEvent click(wxEVT_BUTTON, id);
    screen->ProcessWindowEvent(click);
}

bool popupShown()
{
    auto popups = UIKit::Singleton<UIKit::NotifPopupManager>::Instance();
    return popups && !popups->GetPopups().empty();
}

// Closes the notifications still up, as the user would, so that the last
// shot shows the window alone.
void closePopups()
{
    if (auto popups = UIKit::Singleton<UIKit::NotifPopupManager>::Instance())
        for (UIKit::WinNotifPopup* popup : popups->GetPopups())
            popups->RemoveWindow(popup);
}

// Polls for the next shot; wrong PINs are given while waiting for the PUK
// screen, as a user who forgot the code would.
class DeviceTourTimer : public wxTimer {
public:
    DeviceTourTimer(wxTopLevelWindow& window, wxString folder, std::vector<Shot> shots)
        : m_window(window), m_folder(std::move(folder)), m_shots(std::move(shots)), m_since(now())
    {
    }

    void Notify() override
    {
        if (m_next == m_shots.size()) {
            Stop();
            std::printf("Device tour finished in %s\n", m_folder.utf8_str().data());
            m_window.Close(true);
            return;
        }
        const Shot& shot = m_shots[m_next];
        if (!shot.ready()) {
            m_settled = false;
            if (now() - m_since > c_stepLimit) {
                std::printf("  not shown in time, skipped: %s\n", shot.file);
                advance();
            }
            return;
        }
        // One more tick, so the screen has slid in and painted.
        if (!m_settled) {
            m_settled = true;
            return;
        }
        const wxString path = wxFileName(m_folder, shot.file).GetFullPath();
        std::printf("  screenshot%s: %s\n", SaveScreenshot(path) ? "" : " failed", path.utf8_str().data());
        if (shot.answer)
            shot.answer();
        advance();
    }

private:
    static std::chrono::steady_clock::time_point now() { return std::chrono::steady_clock::now(); }
    void advance()
    {
        ++m_next;
        m_since = now();
        m_settled = false;
    }

    wxTopLevelWindow& m_window;
    wxString m_folder;
    std::vector<Shot> m_shots;
    size_t m_next = 0;
    std::chrono::steady_clock::time_point m_since;
    bool m_settled = false;
};

TString<wchar_t> label(UIKit::ScreenCtrl* screen, const wchar_t* control)
{
    TString<wchar_t> text;
    UIKit::Util::GetWindowLabel(screen, TString<wchar_t>(control), text);
    return text;
}

bool showing(const wchar_t* screen)
{
    return shownScreen(screen) != nullptr;
}

// Shows the window in another language, as the language setting does.
void useCulture(const wchar_t* name)
{
    auto appearance = UIKit::Appearance::Instance();
    if (auto culture = appearance ? appearance->FindCultureByName(name) : nullptr) {
        appearance->UseCulture(culture);
        if (auto* dashboard = UIKit::IDashboard::s_pCurrent)
            dashboard->OnCultureChanged();
    }
}

// Connects from the ready screen, and reads an error away, until the
// network takes the connection.
bool connectUntil(const wchar_t* screen)
{
    if (auto* error = shownScreen(L"ConnectionErrorScreen"))
        press(UIKit::ID_OK, error);
    else if (auto* home = shownScreen(L"HomeScreen"); home && UIKit::Util::FindControl(home, UIKit::ID_CONNECT)->IsEnabled())
        press(UIKit::ID_CONNECT, home);
    return showing(screen);
}

// The tour scenario's story, one screenshot per screen, named after it.
std::vector<Shot> shots()
{
    return {
        {"no-device.png", [] { return showing(L"NoDeviceScreen"); }, nullptr},
        {"unknown-device.png", [] { return showing(L"UnknownDeviceScreen"); }, nullptr},
        {"device-found-popup.png", popupShown, nullptr},
        {"device-initialising.png", [] { return showing(L"DeviceInitScreen"); }, nullptr},
        {"pin.png", [] { return showing(L"PinScreen"); },
         [] {
             type(L"PinCode", c_wrongPin, shownScreen(L"PinScreen"));
             press(UIKit::ID_OK, shownScreen(L"PinScreen"));
         }},
        {"puk.png",
         [] {
             // Every PIN screen until the PUK one gets a wrong code.
             if (auto* pin = shownScreen(L"PinScreen")) {
                 type(L"PinCode", c_wrongPin, pin);
                 press(UIKit::ID_OK, pin);
             }
             return showing(L"PukScreen");
         },
         [] {
             auto* puk = shownScreen(L"PukScreen");
             type(L"PukCode", c_puk, puk);
             type(L"NewPinCode", c_newPin, puk);
             press(UIKit::ID_OK, puk);
         }},
        {"home.png", [] { return showing(L"HomeScreen") && !label(shownScreen(L"HomeScreen"), L"Technology").empty(); },
         [] { press(UIKit::ID_CONNECT, shownScreen(L"HomeScreen")); }},
        {"connection-error.png", [] { return showing(L"ConnectionErrorScreen"); }, nullptr},
        {"connecting.png", [] { return connectUntil(L"ConnectingScreen"); }, nullptr},
        {"connected.png",
         [] { return showing(L"ConnectedScreen") && label(shownScreen(L"ConnectedScreen"), L"Duration") >= L"00:00:03"; },
         nullptr},
        {"roaming.png",
         [] {
             auto* connected = shownScreen(L"ConnectedScreen");
             auto* roaming = connected ? UIKit::Util::RecursiveFindControl(connected, L"Roaming") : nullptr;
             return roaming && roaming->IsShown();
         },
         [] { press(UIKit::ID_DISCONNECT, shownScreen(L"ConnectedScreen")); }},
        {"disconnecting.png", [] { return showing(L"DisconnectingScreen"); }, nullptr},
        {"flight-mode.png", [] { return showing(L"FlightModeScreen"); },
         [] { press(UIKit::ID_YES, shownScreen(L"FlightModeScreen")); }},
        {"sim-error.png", [] { return showing(L"SimErrorScreen"); },
         [] { press(UIKit::ID_OK, shownScreen(L"SimErrorScreen")); }},
        {"device-error.png", [] { return showing(L"ConnectionErrorScreen"); }, [] { useCulture(L"fr"); }},
        // The SIM-less modem gone, the one before it is ready again.
        {"home-fr.png",
         [] {
             auto* home = shownScreen(L"HomeScreen");
             if (!home || !UIKit::Util::FindControl(home, UIKit::ID_CONNECT)->IsEnabled())
                 return false;
             const bool quiet = !popupShown();
             closePopups();
             return quiet;
         },
         nullptr},
    };
}

} // namespace

void DeviceTour::Start(wxTopLevelWindow& window, const TString<char>& folder)
{
    const wxString dir = wxString::FromUTF8(folder);
    wxFileName::Mkdir(dir, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    std::printf("Device tour: the simulated modems play the tour scenario (under a minute)\n");
    Options options;
    // The tour's scenario lies beside the default one.
    options.scenario = wxFileName(wxString::FromUTF8(UIKIT_DEFAULT_SCENARIO_FILE))
                           .GetPathWithSep()
                           .append("tour.scenario")
                           .utf8_string();
    StartDevices(options);
    // Back to the connection area, where the devices' screens appear, in
    // English (the screen tour ends in French).
    useCulture(L"en");
    if (auto sequences = UIKit::Singleton<UIKit::SequenceManager>::Instance())
        sequences->DoEvent(UIKit::ID_HOME);
    RunWhileWindowLives(window, new DeviceTourTimer(window, dir, shots()), 250);
}

} // namespace host

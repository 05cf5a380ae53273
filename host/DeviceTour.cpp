#include "DeviceTour.h"

#include "DeviceWiring.h"
#include "TourSupport.h"

#include "device/DCControler.h"
#include "factory/ControlIds.h"
#include "frames/IDashboard.h"
#include "navigation/ScreenCtrl.h"
#include "popups/NotifPopupManager.h"
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

// The default scenario's first modem: its right codes, and a wrong PIN.
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

std::vector<Shot> shots()
{
    return {
        {"07-device-found-popup.png", popupShown, nullptr},
        {"08-pin-attempts.png", [] { return shownScreen(L"PinScreen") != nullptr; },
         [] {
             type(L"PinCode", c_wrongPin, shownScreen(L"PinScreen"));
             press(UIKit::ID_OK, shownScreen(L"PinScreen"));
         }},
        {"09-puk.png",
         [] {
             // Every PIN screen until the PUK one gets a wrong code.
             if (auto* pin = shownScreen(L"PinScreen")) {
                 type(L"PinCode", c_wrongPin, pin);
                 press(UIKit::ID_OK, pin);
             }
             return shownScreen(L"PukScreen") != nullptr;
         },
         [] {
             auto* puk = shownScreen(L"PukScreen");
             type(L"PukCode", c_puk, puk);
             type(L"NewPinCode", c_newPin, puk);
             press(UIKit::ID_OK, puk);
         }},
        {"10-flight-mode.png", [] { return shownScreen(L"FlightModeScreen") != nullptr; },
         [] { press(UIKit::ID_YES, shownScreen(L"FlightModeScreen")); }},
    };
}

} // namespace

void DeviceTour::Start(wxTopLevelWindow& window, const TString<char>& folder)
{
    const wxString dir = wxString::FromUTF8(folder);
    wxFileName::Mkdir(dir, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    std::printf("Device tour: the simulated modems play their scenario (about a minute)\n");
    StartDevices(Options{});
    RunWhileWindowLives(window, new DeviceTourTimer(window, dir, shots()), 250);
}

} // namespace host

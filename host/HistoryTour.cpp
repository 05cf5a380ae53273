#include "HistoryTour.h"

#include "DashboardFrame.h"
#include "UserInput.h"

#include "Toolkit/PathManager.h"
#include "appearance/Appearance.h"
#include "controls/EditTextCtrl.h"
#include "factory/ControlIds.h"
#include "navigation/ScreenCtrl.h"
#include "util/Util.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace host {
namespace {

// A few sessions, as the history plug-in writes them: start, seconds,
// bytes sent, bytes received, device.
const char* const c_sampleHistory = "2026-03-02 08:14:05\t2730\t4823000\t61250000\tModem E3372\n"
                                    "2026-03-04 19:40:51\t312\t120400\t2210000\tClé USB 4G\n"
                                    "2026-03-07 12:02:33\t9540\t31900000\t402600000\tModem E3372\n"
                                    "2026-03-09 07:55:10\t65\t8300\t51000\tClé USB 4G\n";

// The tour shows made-up sessions, not the user's: the history is read
// from a state directory of its own, kept for the rest of the tour so that
// the sessions the tour makes stay out of the user's history as well.
void useSampleHistory()
{
    // Removed when the process ends, after the plug-ins have written their
    // last entries into it.
    struct StateDir {
        std::filesystem::path path =
            std::filesystem::temp_directory_path() / ("uikit-tour-state-" + std::to_string(::getpid()));
        ~StateDir()
        {
            std::error_code ignored;
            std::filesystem::remove_all(path, ignored);
        }
    };
    static const StateDir state;
    const auto& dir = state.path;
    std::filesystem::create_directories(dir);
    std::ofstream(dir / "history") << c_sampleHistory;
    Toolkit::PathManager::Instance().SetStateDir(dir.string());
}

void useCulture(DashboardFrame& frame, const wchar_t* name)
{
    auto appearance = UIKit::Appearance::Instance();
    if (auto culture = appearance->FindCultureByName(name))
        appearance->UseCulture(culture);
    frame.OnCultureChanged();
}

UIKit::Control* find(DashboardFrame& frame, const wchar_t* name)
{
    return UIKit::Util::RecursiveFindControl(frame.GetCurrentRunningScreen(), name);
}

void press(DashboardFrame& frame, const wchar_t* name)
{
    if (UIKit::Control* button = find(frame, name)) {
        wxCommandEvent click(wxEVT_BUTTON, button->GetId());
        click.SetEventObject(button);
        button->GetEventHandler()->ProcessEvent(click);
    }
}

} // namespace

std::vector<TourStep> HistoryTourSteps()
{
    return {
        {"history",
         [](DashboardFrame& f) {
             useCulture(f, L"en");
             useSampleHistory();
             Click(f, UIKit::ID_HOME);
             Click(f, UIKit::ID_BROWSE);
             // The pointer left over a row would show the row's tool tip.
             f.WarpPointer(0, 0);
         }},
        {"history-sorted",
         [](DashboardFrame& f) {
             press(f, L"SortVolume");
             if (auto* filter = dynamic_cast<UIKit::EditTextCtrl*>(find(f, L"SearchText")))
                 filter->SetControlLabel(L"E3372");
         }},
        // The screen writes its rows and buttons as it comes into view: it
        // is left and brought back by its hot key in the new language.
        {"history-fr",
         [](DashboardFrame& f) {
             useCulture(f, L"fr");
             Click(f, UIKit::ID_HOME);
             PressKey(f, WXK_F4);
             f.WarpPointer(0, 0);
         }},
    };
}

} // namespace host

#include "Tour.h"

#include "DashboardFrame.h"
#include "UserInput.h"
#include "DeviceTour.h"
#include "HistoryTour.h"
#include "SettingsTour.h"
#include "TourSupport.h"

#include "appearance/Appearance.h"
#include "controls/MonthPickerCtrl.h"
#include "controls/NumericUpDownCtrl.h"
#include "controls/ProgressBarCtrl.h"
#include "factory/ControlIds.h"
#include "util/Util.h"

#include <wx/filename.h>
#include <wx/timer.h>

#include <cstdio>
#include <functional>
#include <iterator>
#include <memory>
#include <vector>

namespace host {
namespace {

void useCulture(DashboardFrame& frame, const wchar_t* name)
{
    auto appearance = UIKit::Appearance::Instance();
    if (auto culture = appearance->FindCultureByName(name))
        appearance->UseCulture(culture);
    frame.OnCultureChanged();
}

// Runs one step per timer tick so each screenshot shows a settled window.
class TourTimer : public wxTimer {
public:
    TourTimer(DashboardFrame& frame, wxString folder, std::vector<TourStep> steps)
        : m_frame(frame), m_folder(std::move(folder)), m_steps(std::move(steps))
    {
    }

    void Notify() override
    {
        if (m_next > 0) {
            const wxString path = wxFileName(m_folder, wxString(m_steps[m_next - 1].screen) + ".png").GetFullPath();
            if (SaveScreenshot(path))
                std::printf("  screenshot: %s\n", path.utf8_str().data());
            else
                std::printf("  screenshot failed: %s\n", path.utf8_str().data());
        }
        if (m_next == m_steps.size()) {
            Stop();
            std::printf("Tour finished: %zu screenshots in %s\n", m_steps.size(), m_folder.utf8_str().data());
            // The devices' screens are shown in English.
            useCulture(m_frame, L"en");
            DeviceTour::Start(m_frame, m_folder.utf8_string());
            return;
        }
        m_steps[m_next++].action(m_frame);
    }

private:
    DashboardFrame& m_frame;
    wxString m_folder;
    std::vector<TourStep> m_steps;
    size_t m_next = 0;
};

template <class C>
C* find(DashboardFrame& frame, const wchar_t* name)
{
    return dynamic_cast<C*>(UIKit::Util::RecursiveFindControl(&frame, name));
}

// Gives the usage screen the values a device and a month of use would, so
// the screenshot shows them filled in.
void showUsage(DashboardFrame& frame)
{
    if (auto* month = find<UIKit::MonthPickerCtrl>(frame, L"UsageMonth")) {
        month->SetRange(Toolkit::make_smart<Toolkit::DateTime>(2025, 1, 1), Toolkit::make_smart<Toolkit::DateTime>());
        month->SetDate(Toolkit::DateTime(2026, 3, 1));
    }
    if (auto* allowance = find<UIKit::NumericUpDownCtrl>(frame, L"Allowance"))
        allowance->SetValue(2048);
    if (auto* used = find<UIKit::ProgressBarCtrl>(frame, L"Used"))
        used->SetValues(0, 1370, 2048);
}

// Every screen is reached by the events its buttons and keys send, as a
// user would reach it.
std::vector<TourStep> englishSteps()
{
    return {
        {"usage",
         [](DashboardFrame& f) {
             Click(f, UIKit::ID_MAP);
             showUsage(f);
         }},
        {"about", [](DashboardFrame& f) { Click(f, UIKit::ID_HELP); }},
    };
}

// The home and connection screens are the devices' tour's, which shows
// them with a modem behind them.
std::vector<TourStep> frenchSteps()
{
    return {
        {"usage-fr",
         [](DashboardFrame& f) {
             useCulture(f, L"fr");
             PressKey(f, WXK_F3);
         }},
    };
}

void append(std::vector<TourStep>& steps, std::vector<TourStep> more)
{
    steps.insert(steps.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

} // namespace

void Tour::Start(DashboardFrame& dashboard, const TString<char>& folder)
{
    const wxString dir = wxString::FromUTF8(folder);
    wxFileName::Mkdir(dir, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    std::vector<TourStep> steps = englishSteps();
    // More parts of the tour join here, one line each: append(steps, ...);
    append(steps, frenchSteps());
    append(steps, SettingsTourSteps());
    append(steps, HistoryTourSteps());
    std::printf("Tour: taking %zu screenshots into %s\n", steps.size(), folder.c_str());
    RunWhileWindowLives(dashboard, new TourTimer(dashboard, dir, std::move(steps)), 700);
}

} // namespace host

#include "Tour.h"

#include "DashboardFrame.h"

#include "appearance/Appearance.h"
#include "factory/ControlIds.h"
#include "module/Util.h"

#include <wx/dcmemory.h>
#include <wx/dcscreen.h>
#include <wx/filename.h>
#include <wx/timer.h>

#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

namespace host {
namespace {

struct Step {
    const char* file;
    std::function<void(DashboardFrame&)> action;
};

void screenshot(const wxString& path)
{
    wxScreenDC screen;
    const wxSize size = screen.GetSize();
    wxBitmap bitmap(size);
    wxMemoryDC memory(bitmap);
    memory.Blit(0, 0, size.x, size.y, &screen, 0, 0);
    memory.SelectObject(wxNullBitmap);
    bitmap.SaveFile(path, wxBITMAP_TYPE_PNG);
}

void click(DashboardFrame& frame, int id)
{
    wxCommandEvent event(wxEVT_COMMAND_BUTTON_CLICKED, id);
    if (wxWindow* button = wxWindow::FindWindowById(id, &frame))
        event.SetEventObject(button);
    frame.GetEventHandler()->ProcessEvent(event);
}

// Runs one step per timer tick so each screenshot shows a settled window.
class TourTimer : public wxTimer {
public:
    TourTimer(DashboardFrame& frame, wxString folder, std::vector<Step> steps)
        : m_frame(frame), m_folder(std::move(folder)), m_steps(std::move(steps))
    {
    }

    void Notify() override
    {
        if (m_next > 0) {
            const wxString path = wxFileName(m_folder, m_steps[m_next - 1].file).GetFullPath();
            screenshot(path);
            std::printf("  screenshot: %s\n", path.utf8_str().data());
        }
        if (m_next == m_steps.size()) {
            Stop();
            std::printf("Tour finished: %zu screenshots in %s\n", m_steps.size(), m_folder.utf8_str().data());
            m_frame.Close(true);
            return;
        }
        m_steps[m_next++].action(m_frame);
    }

private:
    DashboardFrame& m_frame;
    wxString m_folder;
    std::vector<Step> m_steps;
    size_t m_next = 0;
};

} // namespace

void Tour::Start(DashboardFrame& dashboard, const TString<char>& folder)
{
    const wxString dir = wxString::FromUTF8(folder);
    wxFileName::Mkdir(dir, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    std::vector<Step> steps{
        {"01-dashboard.png", [](DashboardFrame&) {}},
        {"02-connected.png",
         [](DashboardFrame& f) {
             click(f, UIKit::ID_CONNECT);
             TString<wchar_t> status;
             UIKit::Util::GetWindowLabel(&f, TString<wchar_t>(L"Status"), status);
             std::printf("  status: %ls\n", status.c_str());
         }},
        {"03-french.png",
         [](DashboardFrame& f) {
             click(f, UIKit::ID_DISCONNECT);
             auto appearance = UIKit::Appearance::Instance();
             if (auto french = appearance->FindCultureByName(L"fr"))
                 appearance->UseCulture(french);
             f.OnCultureChanged();
         }},
    };
    std::printf("Tour: taking %zu screenshots into %s\n", steps.size(), folder.c_str());
    // The timer lives as long as the window it drives: it goes with it.
    auto* timer = new TourTimer(dashboard, dir, std::move(steps));
    wxWindow* window = &dashboard;
    dashboard.Bind(wxEVT_DESTROY, [timer, window](wxWindowDestroyEvent& e) {
        if (e.GetWindow() == window)
            delete timer;
        e.Skip();
    });
    timer->Start(700);
}

} // namespace host

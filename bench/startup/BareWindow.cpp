// The floor under the connection manager's start-up figure: a plain wx
// frame of the dashboard's size, with no library, pack or plug-in, that
// prints the milliseconds from process start to the end of its first paint
// and exits, measured as `connection-manager --measure-startup` measures.
// It turns OpenGL off and uses the small native theme before GTK starts, as
// the connection manager does.
#include "NativeTheme.h"
#include "ProcessClock.h"

#include <wx/dcclient.h>
#include <wx/frame.h>
#include <wx/wx.h>

#include <cstdio>
#include <cstdlib>

class BareWindowApp : public wxApp {
public:
    BareWindowApp()
    {
        setenv("GDK_GL", "disable", 0);
        host::UseNativeTheme();
    }

    bool OnInit() override
    {
        auto* frame = new wxFrame(nullptr, wxID_ANY, "bare window", wxDefaultPosition, wxSize(380, 540));
        frame->Bind(wxEVT_PAINT, [this, frame](wxPaintEvent&) {
            wxPaintDC dc(frame);
            dc.SetBrush(*wxBLUE_BRUSH);
            dc.DrawRectangle(0, 0, 380, 60);
            dc.DrawText("Mobile Connect", 20, 20);
            if (m_reported)
                return;
            m_reported = true;
            frame->CallAfter([frame] {
                std::printf("%.0f ms\n", host::MillisecondsSinceProcessStart());
                std::fflush(stdout);
                frame->Close(true);
            });
        });
        frame->Show();
        return true;
    }

private:
    bool m_reported = false;
};

wxIMPLEMENT_APP(BareWindowApp);

#pragma once
// The connection manager application: brings up the library, the
// appearance, the main window and the plug-ins, and takes them down again.
#include "Options.h"
#include "app/App.h"

#include <wx/weakref.h>

namespace host {

class DashboardFrame;

class HostApp : public UIKit::App {
public:
    HostApp();
    bool OnInit() override;
    int OnRun() override;
    int OnExit() override;

private:
    void startLibrary();
    void routeErrors();
    bool takeSingleInstance();

    Options m_options;
    // Cleared by wx when the window is destroyed (closing it does).
    wxWeakRef<DashboardFrame> m_dashboard;
    bool m_moduleStarted = false;
    // Set when this start has done all it was asked without a window (a
    // second start that brought the first one forward): no main loop, and
    // this status.
    bool m_finishedAtStart = false;
    int m_exitStatus = 0;
    // Set when this process turned GTK's OpenGL off for its own start.
    bool m_glOffHere = false;
};

} // namespace host

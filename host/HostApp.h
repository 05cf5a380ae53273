#pragma once
// The connection manager application: brings up the library, the
// appearance and the main window.
#include "Options.h"
#include "app/App.h"

class wxTimer;

namespace host {

class DashboardFrame;

class HostApp : public UIKit::App {
public:
    bool OnInit() override;
    int OnRun() override;
    int OnExit() override;

private:
    bool startLibrary();
    void routeErrors();
    bool takeSingleInstance();
    bool loadAppearance();
    void registerControls();
    bool createDashboard();

    Options m_options;
    DashboardFrame* m_dashboard = nullptr;
    bool m_moduleStarted = false;
    // Set when this start has done all it was asked without a window (a
    // second start that brought the first one forward): no main loop, and
    // this status.
    bool m_finishedAtStart = false;
    int m_exitStatus = 0;
};

} // namespace host

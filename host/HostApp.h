#pragma once
// The connection manager application: brings up the library, the
// appearance and the main window.
#include "Options.h"
#include "module/App.h"

class wxTimer;

namespace host {

class DashboardFrame;

class HostApp : public UIKit::App {
public:
    bool OnInit() override;
    int OnExit() override;

private:
    bool startLibrary();
    bool takeSingleInstance();
    bool loadAppearance();
    void registerControls();
    bool createDashboard();
    void startTour();

    Options m_options;
    DashboardFrame* m_dashboard = nullptr;
    bool m_moduleStarted = false;
};

} // namespace host

#include "HostApp.h"

#include "DashboardFrame.h"
#include "NativeTheme.h"
#include "DeviceWiring.h"
#include "Session.h"
#include "StartupMeasure.h"
#include "Tour.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/LibModuleManager.h"
#include "Toolkit/PathManager.h"
#include "app/SingleApplicationInstance.h"
#include "xml/ErrorSink.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>

wxIMPLEMENT_APP(host::HostApp);

namespace host {

// Built before GTK starts. GTK looks for OpenGL when it opens the display,
// which loads a whole software renderer (the largest part of the start on
// a machine without a graphics card) for a window that cairo draws alone.
HostApp::HostApp()
{
    UseNativeTheme();
    if (!std::getenv("GDK_GL")) {
        setenv("GDK_GL", "disable", 0);
        m_glOffHere = true;
    }
}

bool HostApp::OnInit()
{
    // GTK has read it: programs started from here get the user's setting.
    if (m_glOffHere)
        unsetenv("GDK_GL");
    UIKit::App::OnInit();
    SetAppName("connection-manager");
    std::setlocale(LC_ALL, "");
    if (!m_options.Parse(argc, argv))
        return false;
    Toolkit::ILogger::Instance().SetMinimumSeverity(m_options.verbose ? Toolkit::LogInfo : Toolkit::LogError);
    wxInitAllImageHandlers();
    startLibrary();
    routeErrors();
    LogStartupStage("library started");
    // A measuring start stands alone: it neither hands over to a running
    // window nor takes the channel from one.
    if (!m_options.measureStartup && !takeSingleInstance())
        return m_finishedAtStart;
    if (!LoadAppearance(m_options))
        return false;
    RegisterControls();
    LogStartupStage("appearance loaded");
    m_dashboard = CreateDashboard();
    if (!m_dashboard)
        return false;
    SetTopWindow(m_dashboard);
    LogStartupStage("main window built");
    if (m_options.measureStartup)
        ReportFirstPaint(*m_dashboard, [] { wxTheApp->GetTopWindow()->Close(true); });
    StartNavigation();
    LogStartupStage("plug-ins loaded, home screen shown");
    // The tour starts the devices itself once the screens are shown.
    if (m_options.tourDir.empty())
        StartDevices(m_options);
    else
        Tour::Start(*m_dashboard, m_options.tourDir);
    return true;
}

int HostApp::OnRun()
{
    return m_finishedAtStart ? m_exitStatus : UIKit::App::OnRun();
}

// The log goes to its file; stderr shows each problem of the pack once, as
// "file:line: message". With --verbose the whole log is on stderr as well,
// pack problems included, so the sink does not print them a second time.
void HostApp::routeErrors()
{
    Toolkit::ILogger::Instance().SetStderrEnabled(m_options.verbose);
    if (m_options.verbose)
        UIKit::ErrorSink::Install([](const UIKit::PackError&) {});
}

void HostApp::startLibrary()
{
    auto& paths = Toolkit::PathManager::Instance();
    paths.SetApplicationName("connection-manager");
    Toolkit::ILogger::Instance().AddFileSink(paths.GetStateDir() + "/connection-manager.log");
    (*Toolkit::LibModuleManager::s_pInstance)->InitializeAll();
    m_moduleStarted = true;
    SetPaths(m_options);
}

bool HostApp::takeSingleInstance()
{
    auto instance = UIKit::SingleApplicationInstance::Instance();
    if (!instance->IsAlreadyRunning()) {
        // Without the channel this start still works, but a later start
        // cannot bring this window forward and would open a second one.
        if (!instance->SetAsActiveInstance()) {
            TK_LOG(Toolkit::LogError) << "cannot open the activation channel for later starts";
            std::fprintf(stderr, "connection-manager: cannot open the activation channel; a second start will "
                                 "not find this window (see the log)\n");
        }
        return true;
    }
    // A second start: it has done what it was asked once the first window
    // came forward, and exits with success.
    m_finishedAtStart = true;
    if (instance->BringPreviousInstanceToFront()) {
        std::printf("connection-manager is already running: brought its window to the front.\n");
        m_exitStatus = 0;
    } else {
        std::fprintf(stderr,
                     "connection-manager is already running, but it did not answer the request to come to the "
                     "front.\n");
        m_exitStatus = 1;
    }
    return false;
}

// Plug-in code must not run once its library is gone: the plug-ins are
// deactivated and their screens destroyed before module release unloads
// the libraries.
int HostApp::OnExit()
{
    StopDevices();
    StopNavigation(m_dashboard);
    if (m_moduleStarted)
        (*Toolkit::LibModuleManager::s_pInstance)->ReleaseAll();
    return UIKit::App::OnExit();
}

} // namespace host

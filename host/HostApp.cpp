#include "HostApp.h"

#include "DashboardFrame.h"
#include "DeviceWiring.h"
#include "Tour.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/LibModuleManager.h"
#include "Toolkit/PathManager.h"
#include "appearance/Appearance.h"
#include "controls/StandardControls.h"
#include "device/DeviceControls.h"
#include "factory/CtrlFactory.h"
#include "app/SingleApplicationInstance.h"
#include "xml/ErrorSink.h"

#include <wx/filename.h>

#include <clocale>
#include <cstdio>

wxIMPLEMENT_APP(host::HostApp);

namespace host {

bool HostApp::OnInit()
{
    UIKit::App::OnInit();
    SetAppName("connection-manager");
    std::setlocale(LC_ALL, "");
    if (!m_options.Parse(argc, argv))
        return false;
    Toolkit::ILogger::Instance().SetMinimumSeverity(m_options.verbose ? Toolkit::LogInfo : Toolkit::LogError);
    wxInitAllImageHandlers();
    if (!startLibrary())
        return false;
    routeErrors();
    if (!takeSingleInstance())
        return m_finishedAtStart;
    if (!loadAppearance())
        return false;
    registerControls();
    return createDashboard();
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

bool HostApp::startLibrary()
{
    auto& paths = Toolkit::PathManager::Instance();
    paths.SetApplicationName("connection-manager");
    if (!m_options.appearancesDir.empty())
        paths.SetAppearancesDir(m_options.appearancesDir);
    else if (paths.GetAppearancesDir().empty())
        paths.SetAppearancesDir(UIKIT_DEFAULT_APPEARANCES_DIR);
    Toolkit::ILogger::Instance().AddFileSink(paths.GetStateDir() + "/connection-manager.log");
    (*Toolkit::LibModuleManager::s_pInstance)->InitializeAll();
    m_moduleStarted = true;
    return true;
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

bool HostApp::loadAppearance()
{
    UIKit::Appearance::CmdLine_OptionAppearance = m_options.appearance;
    UIKit::Appearance::CmdLine_OptionCulture = m_options.culture;
    auto appearance = UIKit::Appearance::Instance();
    if (!appearance->Init()) {
        std::fprintf(stderr, "connection-manager: no usable appearance pack under %s (see the log)\n",
                     Toolkit::PathManager::Instance().GetAppearancesDir().c_str());
        return false;
    }
    // An unknown name falls back to another pack: say which one is shown.
    wxString path(appearance->GetPackPath());
    while (path.EndsWith("/"))
        path.RemoveLast();
    const wxFileName used(path);
    if (!m_options.appearance.empty() && used.GetName() != wxString(m_options.appearance)) {
        std::fprintf(stderr, "connection-manager: no appearance pack named \"%s\"; using \"%s\" instead\n",
                     wxString(m_options.appearance).utf8_str().data(), used.GetName().utf8_str().data());
    }
    return true;
}

void HostApp::registerControls()
{
    using namespace UIKit;
    auto factory = CtrlFactory::Instance();
    RegisterStandardControls(*factory);
    RegisterDeviceControls(*factory);
    // Documents and controls the factory builds read the appearance's pack.
    factory->SetResources(Appearance::Instance().get());
}

bool HostApp::createDashboard()
{
    m_dashboard = new DashboardFrame(wxRect());
    App::m_pDashboard = m_dashboard;
    if (!m_dashboard->LoadDashboard()) {
        std::fprintf(stderr, "connection-manager: the pack has no usable dashboard description (see the log)\n");
        m_dashboard->Destroy();
        m_dashboard = nullptr;
        App::m_pDashboard = nullptr;
        return false;
    }
    m_dashboard->Show(true);
    SetTopWindow(m_dashboard);
    // The tour starts the devices itself once the screens are shown.
    if (m_options.tourDir.empty())
        StartDevices(m_options);
    else
        Tour::Start(*m_dashboard, m_options.tourDir);
    return true;
}

int HostApp::OnExit()
{
    StopDevices();
    App::m_pDashboard = nullptr;
    if (m_moduleStarted)
        (*Toolkit::LibModuleManager::s_pInstance)->ReleaseAll();
    return UIKit::App::OnExit();
}

} // namespace host

#include "HostApp.h"

#include "DashboardFrame.h"
#include "Tour.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/LibModuleManager.h"
#include "Toolkit/PathManager.h"
#include "appearance/Appearance.h"
#include "controls/StandardControls.h"
#include "factory/CtrlFactory.h"
#include "module/SingleApplicationInstance.h"

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
    return startLibrary() && takeSingleInstance() && loadAppearance() && (registerControls(), true) &&
           createDashboard();
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
    if (!instance->IsAlreadyRunning())
        return instance->SetAsActiveInstance() || true;
    if (instance->BringPreviousInstanceToFront()) {
        std::printf("connection-manager is already running: brought its window to the front.\n");
    } else {
        std::fprintf(stderr,
                     "connection-manager is already running, but it did not answer the request to come to the "
                     "front.\n");
    }
    return false;
}

bool HostApp::loadAppearance()
{
    UIKit::Appearance::CmdLine_OptionAppearance = m_options.appearance;
    UIKit::Appearance::CmdLine_OptionCulture = m_options.culture;
    if (!UIKit::Appearance::Instance()->Init()) {
        std::fprintf(stderr, "connection-manager: no usable appearance pack under %s (see the log)\n",
                     Toolkit::PathManager::Instance().GetAppearancesDir().c_str());
        return false;
    }
    return true;
}

void HostApp::registerControls()
{
    using namespace UIKit;
    auto factory = CtrlFactory::Instance();
    RegisterStandardControls(*factory);
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
    if (!m_options.tourDir.empty())
        Tour::Start(*m_dashboard, m_options.tourDir);
    return true;
}

int HostApp::OnExit()
{
    App::m_pDashboard = nullptr;
    if (m_moduleStarted)
        (*Toolkit::LibModuleManager::s_pInstance)->ReleaseAll();
    return UIKit::App::OnExit();
}

} // namespace host

#include "Session.h"

#include "DashboardFrame.h"
#include "Options.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/PathManager.h"
#include "appearance/Appearance.h"
#include "appearance/ConfDataFile.h"
#include "app/LibraryControls.h"
#include "factory/CtrlFactory.h"
#include "navigation/SequenceManager.h"
#include "plugins/PluginManager.h"
#include "settings/MainSettingsController.h"
#include "settings/SettingRootScreen.h"

#include <wx/filename.h>

#include <cstdio>

namespace host {

BuiltInPaths GetBuiltInPaths()
{
    return {UIKIT_DEFAULT_APPEARANCES_DIR, UIKIT_DEFAULT_PLUGINS_DIR, TString<wchar_t>(UIKIT_DEFAULT_BUNDLE_FILE)};
}

void SetPaths(const Options& options)
{
    auto& paths = Toolkit::PathManager::Instance();
    const BuiltInPaths builtIn = GetBuiltInPaths();
    if (!options.appearancesDir.empty())
        paths.SetAppearancesDir(options.appearancesDir);
    else if (paths.GetAppearancesDir().empty())
        paths.SetAppearancesDir(builtIn.appearancesDir);
    if (!options.pluginsDir.empty())
        paths.SetPluginsDir(options.pluginsDir);
    else if (paths.GetPluginsDir().empty())
        paths.SetPluginsDir(builtIn.pluginsDir);
    if (auto bundle = UIKit::ConfDataFile::Instance())
        bundle->LoadFromFile(options.bundleFile.empty() ? builtIn.bundleFile : options.bundleFile);
}

bool LoadAppearance(const Options& options)
{
    UIKit::Appearance::CmdLine_OptionAppearance = options.appearance;
    UIKit::Appearance::CmdLine_OptionCulture = options.culture;
    auto appearance = UIKit::Appearance::Instance();
    if (!appearance || !appearance->Init()) {
        std::fprintf(stderr, "connection-manager: no usable appearance pack under %s (see the log)\n",
                     Toolkit::PathManager::Instance().GetAppearancesDir().c_str());
        return false;
    }
    // An unknown name falls back to another pack: say which one is shown.
    wxString path(appearance->GetPackPath());
    while (path.EndsWith("/"))
        path.RemoveLast();
    const wxFileName used(path);
    if (!options.appearance.empty() && used.GetName() != wxString(options.appearance)) {
        std::fprintf(stderr, "connection-manager: no appearance pack named \"%s\"; using \"%s\" instead\n",
                     wxString(options.appearance).utf8_str().data(), used.GetName().utf8_str().data());
    }
    return true;
}

void RegisterControls()
{
    auto factory = UIKit::CtrlFactory::Instance();
    UIKit::RegisterLibraryControls(*factory);
    // Documents and controls the factory builds read the appearance's pack.
    factory->SetResources(UIKit::Appearance::Instance().get());
}

DashboardFrame* CreateDashboard()
{
    auto* dashboard = new DashboardFrame(wxRect());
    UIKit::IDashboard::s_pCurrent = dashboard;
    if (!dashboard->LoadDashboard()) {
        std::fprintf(stderr, "connection-manager: the pack has no usable dashboard description (see the log)\n");
        UIKit::IDashboard::s_pCurrent = nullptr;
        dashboard->Destroy();
        return nullptr;
    }
    dashboard->Show(true);
    return dashboard;
}

void StartNavigation()
{
    if (auto plugins = UIKit::Singleton<UIKit::PluginManager>::Instance())
        plugins->Load();
    // The settings' stream-log switch lives in the preferences; the tree is
    // built from the plug-ins just loaded.
    UIKit::SettingRootScreen::SetStreamLogPreference("Diagnostics", "StreamLogs");
    UIKit::SettingRootScreen::RestoreStreamLogs();
    if (auto settings = UIKit::MainSettingsController::Instance())
        settings->LoadSettingItemFromPlugins();
    if (auto sequences = UIKit::Singleton<UIKit::SequenceManager>::Instance())
        sequences->DoHome();
    // The window still opens, but empty: say where to look.
    auto* dashboard = UIKit::IDashboard::s_pCurrent;
    if (dashboard && !dashboard->GetCurrentRunningScreen())
        std::fprintf(stderr, "connection-manager: no plug-in showed a home screen; check the plug-in folder %s and "
                             "the bundle file (see the log)\n",
                     Toolkit::PathManager::Instance().GetPluginsDir().c_str());
}

void StopNavigation(DashboardFrame* dashboard)
{
    if (auto settings = UIKit::MainSettingsController::Instance())
        settings->UnloadSettingItemFromPlugins();
    if (auto plugins = UIKit::Singleton<UIKit::PluginManager>::Instance())
        plugins->Unload();
    if (auto sequences = UIKit::Singleton<UIKit::SequenceManager>::Instance())
        sequences->OnApplicationExit();
    // The screens are windows of plug-in classes: they go now, while the
    // plug-in libraries are still loaded.
    delete dashboard;
}

} // namespace host

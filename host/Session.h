#pragma once
// The steps that bring the connection manager up and take it down, shared
// by the application and its tests: folders, appearance, control classes,
// the main window, the plug-ins and the first screen; then the reverse,
// in an order that lets no plug-in code run once its library is gone.
#include "Toolkit/TString.h"

namespace host {

class DashboardFrame;
struct Options;

// The folders and the bundle file the build puts in place; used for what
// the command line does not name.
struct BuiltInPaths {
    TString<char> appearancesDir;
    TString<char> pluginsDir;
    TString<wchar_t> bundleFile;
};
BuiltInPaths GetBuiltInPaths();

// Points the path manager at the appearances and plug-in folders and the
// bundle configuration at its file: the command line's, else the built-in
// ones. Folders named in the environment win, as the path manager wants.
void SetPaths(const Options& options);
// The pack and culture the options ask for; false (said on stderr) when no
// pack can be used.
bool LoadAppearance(const Options& options);
// Every standard control class, built from the appearance's pack.
void RegisterControls();
// The main window built from the pack, made the application's dashboard
// and shown; null (said on stderr) when the pack describes none.
DashboardFrame* CreateDashboard();
// Loads the plug-ins the bundle file names, then fires the home row; says
// on stderr when that shows no screen.
void StartNavigation();
// Deactivates the plug-ins, forgets the sequences and destroys the main
// window if it is still there. The plug-in libraries themselves go with
// module release, after this.
void StopNavigation(DashboardFrame* dashboard);

} // namespace host

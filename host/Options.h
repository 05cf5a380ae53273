#pragma once
// The connection manager's command line.
#include "Toolkit/TString.h"

#include <wx/cmdline.h>

namespace host {

struct Options {
    TString<wchar_t> appearance;     // pack name, without ".ar"
    TString<wchar_t> culture;        // e.g. "fr"
    TString<char> appearancesDir;    // where the packs are
    TString<char> pluginsDir;        // where the plug-in libraries are
    TString<wchar_t> bundleFile;     // the bundle file naming the plug-ins
    TString<char> tourDir;           // take screenshots there and exit
    TString<char> scenario;          // what the simulated modems play (empty: the default one)
    bool verbose = false;
    bool measureStartup = false;     // print the start-up time once painted, then exit

    // Fills the options; false (with a message on stderr) on bad input or
    // --help.
    bool Parse(int argc, wchar_t** argv);
};

} // namespace host

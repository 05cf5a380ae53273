#include "Options.h"

#include "Toolkit/UTF8.h"

namespace host {

bool Options::Parse(int argc, wchar_t** argv)
{
    static const wxCmdLineEntryDesc entries[] = {
        {wxCMD_LINE_SWITCH, "h", "help", "show this help", wxCMD_LINE_VAL_NONE, wxCMD_LINE_OPTION_HELP},
        {wxCMD_LINE_OPTION, "a", "appearance", "appearance pack to use (name without .ar)", wxCMD_LINE_VAL_STRING, 0},
        {wxCMD_LINE_OPTION, "c", "culture", "language to show (en, fr, ...)", wxCMD_LINE_VAL_STRING, 0},
        {wxCMD_LINE_OPTION, "d", "appearances-dir", "folder holding the appearance packs", wxCMD_LINE_VAL_STRING, 0},
        {wxCMD_LINE_OPTION, "p", "plugins-dir", "folder holding the plug-in libraries", wxCMD_LINE_VAL_STRING, 0},
        {wxCMD_LINE_OPTION, "b", "bundle-file", "file naming the bundle and its plug-ins", wxCMD_LINE_VAL_STRING, 0},
        {wxCMD_LINE_OPTION, "", "tour", "show each screen, save screenshots in this folder, then exit",
         wxCMD_LINE_VAL_STRING, 0},
        {wxCMD_LINE_OPTION, "", "scenario", "scenario file the simulated modems play", wxCMD_LINE_VAL_STRING, 0},
        {wxCMD_LINE_SWITCH, "", "measure-startup",
         "print the milliseconds from process start to the first painted window, then exit", wxCMD_LINE_VAL_NONE, 0},
        {wxCMD_LINE_SWITCH, "v", "verbose", "log informational messages too", wxCMD_LINE_VAL_NONE, 0},
        {wxCMD_LINE_NONE, nullptr, nullptr, nullptr, wxCMD_LINE_VAL_NONE, 0},
    };
    wxCmdLineParser parser(entries, argc, argv);
    if (parser.Parse(true) != 0)
        return false;
    wxString value;
    if (parser.Found("appearance", &value))
        appearance = value.ToStdWstring();
    if (parser.Found("culture", &value))
        culture = value.ToStdWstring();
    if (parser.Found("appearances-dir", &value))
        appearancesDir = value.utf8_string();
    if (parser.Found("plugins-dir", &value))
        pluginsDir = value.utf8_string();
    if (parser.Found("bundle-file", &value))
        bundleFile = value.ToStdWstring();
    if (parser.Found("tour", &value))
        tourDir = value.utf8_string();
    if (parser.Found("scenario", &value))
        scenario = value.utf8_string();
    verbose = parser.Found("verbose");
    measureStartup = parser.Found("measure-startup");
    return true;
}

} // namespace host

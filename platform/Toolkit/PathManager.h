#pragma once
// Where the application's files are: its name, the appearance packs, the
// plug-ins, the user's configuration and state. Each location is settable
// by the host and overridable by an environment variable, which wins:
//
//   UIKIT_APP_NAME, UIKIT_APPEARANCES_DIR, UIKIT_PLUGINS_DIR,
//   UIKIT_CONFIG_DIR, UIKIT_STATE_DIR, UIKIT_RUNTIME_DIR
//
// Without either, the configuration, state and runtime directories follow
// the XDG base directories with the application name appended.
#include "Toolkit/Mutex.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

namespace Toolkit {

class PathManager {
public:
    static PathManager& Instance();

    void SetApplicationName(const TString<char>& name);
    void SetAppearancesDir(const TString<char>& dir);
    void SetPluginsDir(const TString<char>& dir);
    void SetConfigDir(const TString<char>& dir);
    void SetStateDir(const TString<char>& dir);
    void SetRuntimeDir(const TString<char>& dir);

    TString<char> GetApplicationName();
    TString<char> GetAppearancesDir();
    TString<char> GetPluginsDir();
    TString<char> GetConfigDir();
    TString<char> GetStateDir();
    TString<char> GetRuntimeDir();

    // Appends name to path with exactly one separator between them.
    static void AppendPath(TString<char>& path, const TString<char>& name);
    static void AppendPath(TString<wchar_t>& path, const TString<wchar_t>& name);
    static bool Exists(const TString<char>& path);
    static bool FileExists(const TString<char>& path);
    static bool DirExists(const TString<char>& path);
    static bool Exists(const TString<wchar_t>& path);
    static bool FileExists(const TString<wchar_t>& path);
    static bool DirExists(const TString<wchar_t>& path);

private:
    PathManager() = default;
    TString<char> resolve(const char* variable, const TString<char>& set, const char* xdgVariable,
                          const char* xdgFallback);

    Mutex m_lock;
    TString<char> m_appName;
    TString<char> m_appearances;
    TString<char> m_plugins;
    TString<char> m_config;
    TString<char> m_state;
    TString<char> m_runtime;
};

} // namespace Toolkit

#include "Toolkit/PathManager.h"

#include "Toolkit/UTF8.h"

#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace Toolkit {
namespace {

const char* env(const char* name)
{
    const char* v = std::getenv(name);
    return (v && *v) ? v : nullptr;
}

std::filesystem::path fsPath(const TString<char>& p) { return std::filesystem::path(std::string(p)); }

} // namespace

PathManager& PathManager::Instance()
{
    static PathManager* instance = new PathManager();
    return *instance;
}

void PathManager::SetApplicationName(const TString<char>& name) { MutexLocker l(m_lock); m_appName = name; }
void PathManager::SetAppearancesDir(const TString<char>& dir) { MutexLocker l(m_lock); m_appearances = dir; }
void PathManager::SetPluginsDir(const TString<char>& dir) { MutexLocker l(m_lock); m_plugins = dir; }
void PathManager::SetConfigDir(const TString<char>& dir) { MutexLocker l(m_lock); m_config = dir; }
void PathManager::SetStateDir(const TString<char>& dir) { MutexLocker l(m_lock); m_state = dir; }
void PathManager::SetRuntimeDir(const TString<char>& dir) { MutexLocker l(m_lock); m_runtime = dir; }

TString<char> PathManager::GetApplicationName()
{
    if (const char* v = env("UIKIT_APP_NAME"))
        return v;
    MutexLocker l(m_lock);
    return m_appName.empty() ? TString<char>("uikit") : m_appName;
}

TString<char> PathManager::resolve(const char* variable, const TString<char>& set, const char* xdgVariable,
                                   const char* xdgFallback)
{
    if (const char* v = env(variable))
        return v;
    {
        MutexLocker l(m_lock);
        if (!set.empty())
            return set;
    }
    if (!xdgVariable)
        return TString<char>();
    TString<char> base;
    if (const char* v = env(xdgVariable))
        base = v;
    else if (const char* home = env("HOME"))
        base = TString<char>(home) + "/" + xdgFallback;
    else
        base = "/tmp";
    AppendPath(base, GetApplicationName());
    return base;
}

TString<char> PathManager::GetAppearancesDir() { return resolve("UIKIT_APPEARANCES_DIR", m_appearances, nullptr, nullptr); }
TString<char> PathManager::GetPluginsDir() { return resolve("UIKIT_PLUGINS_DIR", m_plugins, nullptr, nullptr); }
TString<char> PathManager::GetConfigDir() { return resolve("UIKIT_CONFIG_DIR", m_config, "XDG_CONFIG_HOME", ".config"); }
TString<char> PathManager::GetStateDir() { return resolve("UIKIT_STATE_DIR", m_state, "XDG_STATE_HOME", ".local/state"); }

TString<char> PathManager::GetRuntimeDir()
{
    if (const char* v = env("UIKIT_RUNTIME_DIR"))
        return v;
    {
        MutexLocker l(m_lock);
        if (!m_runtime.empty())
            return m_runtime;
    }
    // Without XDG_RUNTIME_DIR, a per-user folder under /tmp keeps users apart.
    TString<char> base = env("XDG_RUNTIME_DIR") ? TString<char>(env("XDG_RUNTIME_DIR"))
                                                : TString<char>("/tmp/uikit-" + std::to_string(getuid()));
    AppendPath(base, GetApplicationName());
    return base;
}

void PathManager::AppendPath(TString<char>& path, const TString<char>& name)
{
    while (!path.empty() && path.back() == '/' && path.size() > 1)
        path.pop_back();
    size_t skip = 0;
    while (skip < name.size() && name[skip] == '/')
        ++skip;
    if (!path.empty() && path.back() != '/')
        path += '/';
    path.append(name, skip);
}

void PathManager::AppendPath(TString<wchar_t>& path, const TString<wchar_t>& name)
{
    auto narrow = UTF8::ToUTF8(path);
    AppendPath(narrow, UTF8::ToUTF8(name));
    path = UTF8::ToUNICODE(narrow);
}

bool PathManager::Exists(const TString<char>& path)
{
    std::error_code ec;
    return !path.empty() && std::filesystem::exists(fsPath(path), ec);
}

bool PathManager::FileExists(const TString<char>& path)
{
    std::error_code ec;
    return !path.empty() && std::filesystem::is_regular_file(fsPath(path), ec);
}

bool PathManager::DirExists(const TString<char>& path)
{
    std::error_code ec;
    return !path.empty() && std::filesystem::is_directory(fsPath(path), ec);
}

bool PathManager::Exists(const TString<wchar_t>& path) { return Exists(UTF8::ToUTF8(path)); }
bool PathManager::FileExists(const TString<wchar_t>& path) { return FileExists(UTF8::ToUTF8(path)); }
bool PathManager::DirExists(const TString<wchar_t>& path) { return DirExists(UTF8::ToUTF8(path)); }

} // namespace Toolkit

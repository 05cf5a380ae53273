#include "Toolkit/Directory.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/PathManager.h"
#include "Toolkit/UTF8.h"

#include <algorithm>
#include <filesystem>
#include <fnmatch.h>

namespace Toolkit {

bool Directory::Open(const TString<wchar_t>& path) { return Open(UTF8::ToUTF8(path)); }

bool Directory::Open(const TString<char>& path)
{
    m_path = path;
    m_open = PathManager::DirExists(path);
    if (!m_open)
        TK_LOG(LogError) << "cannot open directory " << path << ": not a directory";
    return m_open;
}

bool Directory::GetFiles(const TString<wchar_t>& pattern, std::vector<TString<wchar_t>>& names, unsigned flags) const
{
    names.clear();
    return m_open && list(m_path, pattern, Kind::File, flags, names);
}

bool Directory::GetDirectories(const TString<wchar_t>& pattern, std::vector<TString<wchar_t>>& names,
                               unsigned flags) const
{
    names.clear();
    return m_open && list(m_path, pattern, Kind::Folder, flags, names);
}

bool Directory::EnumFilePaths(std::vector<TString<wchar_t>>& names, const TString<wchar_t>& dir,
                              const TString<wchar_t>& pattern)
{
    return EnumFilePaths(names, UTF8::ToUTF8(dir), pattern);
}

bool Directory::EnumFilePaths(std::vector<TString<wchar_t>>& names, const TString<char>& dir,
                              const TString<wchar_t>& pattern)
{
    names.clear();
    return list(dir, pattern, Kind::Any, 0, names);
}

bool Directory::list(const TString<char>& dir, const TString<wchar_t>& pattern, Kind kind, unsigned flags,
                     std::vector<TString<wchar_t>>& names)
{
    namespace fs = std::filesystem;
    const std::string glob = pattern.empty() ? std::string("*") : std::string(UTF8::ToUTF8(pattern));
    const int matchFlags = (flags & IncludeHidden) ? 0 : FNM_PERIOD;
    std::error_code ec;
    fs::directory_iterator it(fs::path(std::string(dir)), ec);
    if (ec) {
        TK_LOG(LogError) << "cannot list directory " << dir << ": " << ec.message();
        return false;
    }
    std::vector<std::string> found;
    for (; it != fs::directory_iterator(); it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (::fnmatch(glob.c_str(), name.c_str(), matchFlags) != 0)
            continue;
        std::error_code typeError;
        if (kind == Kind::File && !it->is_regular_file(typeError))
            continue;
        if (kind == Kind::Folder && !it->is_directory(typeError))
            continue;
        found.push_back(name);
    }
    if (ec) {
        TK_LOG(LogError) << "cannot list directory " << dir << ": " << ec.message();
        return false;
    }
    std::sort(found.begin(), found.end());
    for (const auto& name : found) {
        TString<char> entry(name);
        if (flags & FullPaths) {
            entry = dir;
            PathManager::AppendPath(entry, TString<char>(name));
        }
        names.push_back(UTF8::ToUNICODE(entry));
    }
    return true;
}

} // namespace Toolkit

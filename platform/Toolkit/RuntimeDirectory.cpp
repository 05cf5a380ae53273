#include "Toolkit/RuntimeDirectory.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/PathManager.h"
#include "Toolkit/UTF8.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace Toolkit {
namespace {

// Creates every missing component of the path with mode 0700.
bool makePrivateDirs(const std::string& path)
{
    for (size_t slash = path.find('/', 1);; slash = path.find('/', slash + 1)) {
        const std::string part = path.substr(0, slash);
        if (!part.empty() && ::mkdir(part.c_str(), 0700) != 0 && errno != EEXIST) {
            TK_LOG(LogError) << "cannot create runtime directory " << part << ": " << std::strerror(errno);
            return false;
        }
        if (slash == std::string::npos)
            return true;
    }
}

bool makePrivate(const std::string& dir)
{
    if (!makePrivateDirs(dir))
        return false;
    struct stat st {};
    if (::stat(dir.c_str(), &st) != 0 || !S_ISDIR(st.st_mode)) {
        TK_LOG(LogError) << "runtime directory " << dir << " is not a directory";
        return false;
    }
    if (st.st_uid != ::geteuid()) {
        // Another user could replace our socket or lock file there.
        TK_LOG(LogError) << "runtime directory " << dir << " belongs to uid " << unsigned(st.st_uid)
                         << ", not to this user";
        return false;
    }
    if ((st.st_mode & 077) != 0 && ::chmod(dir.c_str(), 0700) != 0) {
        TK_LOG(LogError) << "cannot make runtime directory " << dir << " private: " << std::strerror(errno);
        return false;
    }
    return true;
}

} // namespace

TString<char> RuntimeDirectory::FilePath(const TString<char>& fileName)
{
    TString<char> path = PathManager::Instance().GetRuntimeDir();
    PathManager::AppendPath(path, fileName);
    return path;
}

TString<char> RuntimeDirectory::PrepareFile(const TString<char>& fileName)
{
    const TString<char> dir = PathManager::Instance().GetRuntimeDir();
    if (dir.empty() || !makePrivate(dir))
        return {};
    return FilePath(fileName);
}

TString<char> RuntimeDirectory::FileName(const TString<wchar_t>& name, const char* suffix)
{
    TString<char> base = name.empty() ? PathManager::Instance().GetApplicationName() : UTF8::ToUTF8(name);
    for (char& c : base) {
        if (c == '/' || c == '\0')
            c = '_';
    }
    return base + suffix;
}

} // namespace Toolkit

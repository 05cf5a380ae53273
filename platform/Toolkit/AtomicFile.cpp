#include "Toolkit/AtomicFile.h"

#include "Toolkit/ILogger.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <sys/stat.h>
#include <unistd.h>

namespace Toolkit {
namespace {

std::mutex& hookLock()
{
    static std::mutex lock;
    return lock;
}

AtomicFile::BeforeRenameHook& hook()
{
    static AtomicFile::BeforeRenameHook instance;
    return instance;
}

bool shouldRename(const TString<char>& tempPath)
{
    AtomicFile::BeforeRenameHook current;
    {
        std::lock_guard lock(hookLock());
        current = hook();
    }
    return !current || current(tempPath);
}

bool writeAll(int fd, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t n = ::write(fd, bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            return false;
        bytes.remove_prefix(size_t(n));
    }
    return true;
}

TString<char> directoryOf(const TString<char>& path)
{
    const auto slash = path.rfind('/');
    if (slash == TString<char>::npos)
        return ".";
    return slash == 0 ? TString<char>("/") : TString<char>(path.substr(0, slash));
}

// Makes the rename itself durable.
void syncDirectory(const TString<char>& dir)
{
    const int fd = ::open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return;
    ::fsync(fd);
    ::close(fd);
}

} // namespace

void AtomicFile::SetBeforeRenameHook(BeforeRenameHook newHook)
{
    std::lock_guard lock(hookLock());
    hook() = std::move(newHook);
}

bool AtomicFile::Write(const TString<char>& path, std::string_view bytes)
{
    std::string temp = path + ".XXXXXX";
    const int fd = ::mkostemp(temp.data(), O_CLOEXEC);
    if (fd < 0) {
        TK_LOG(LogError) << "cannot write " << path << ": cannot create a temporary file: " << std::strerror(errno);
        return false;
    }
    struct stat existing {};
    if (::stat(path.c_str(), &existing) == 0)
        ::fchmod(fd, existing.st_mode & 07777);
    const bool written = writeAll(fd, bytes) && ::fsync(fd) == 0;
    const int writeError = errno;
    ::close(fd);
    if (!written) {
        ::unlink(temp.c_str());
        TK_LOG(LogError) << "cannot write " << path << ": " << std::strerror(writeError);
        return false;
    }
    if (!shouldRename(temp)) {
        TK_LOG(LogError) << "write of " << path << " interrupted before the rename; " << temp << " left behind";
        return false;
    }
    if (::rename(temp.c_str(), path.c_str()) != 0) {
        const int renameError = errno;
        ::unlink(temp.c_str());
        TK_LOG(LogError) << "cannot write " << path << ": cannot rename " << temp << " over it: "
                         << std::strerror(renameError);
        return false;
    }
    syncDirectory(directoryOf(path));
    return true;
}

} // namespace Toolkit

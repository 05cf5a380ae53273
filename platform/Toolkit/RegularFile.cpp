#include "Toolkit/RegularFile.h"

#include "Toolkit/FileDescriptor.h"
#include "Toolkit/ILogger.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Toolkit {
namespace {

const char* kindOf(mode_t mode)
{
    if (S_ISDIR(mode))
        return "a directory";
    if (S_ISFIFO(mode))
        return "a FIFO";
    if (S_ISCHR(mode) || S_ISBLK(mode))
        return "a device";
    if (S_ISSOCK(mode))
        return "a socket";
    return "not a regular file";
}

RegularFile::Result refuse(const TString<char>& path, mode_t mode)
{
    TK_LOG(LogError) << "refused to read " << path << ": it is " << kindOf(mode);
    return RegularFile::Result::NotRegular;
}

RegularFile::Result fail(const TString<char>& path, const char* what, int error)
{
    TK_LOG(LogError) << "cannot " << what << ' ' << path << ": " << std::strerror(error);
    return RegularFile::Result::Failed;
}

} // namespace

RegularFile::Result RegularFile::Read(const TString<char>& path, size_t maxBytes, std::string& bytes)
{
    bytes.clear();
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0)
        return errno == ENOENT ? Result::Missing : fail(path, "examine", errno);
    if (!S_ISREG(st.st_mode))
        return refuse(path, st.st_mode);
    // O_NONBLOCK: should a FIFO be swapped in after the check, opening it
    // must not wait for a writer.
    FileDescriptor fd(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!fd.IsValid())
        return errno == ENOENT ? Result::Missing : fail(path, "open", errno);
    if (::fstat(fd.Get(), &st) != 0)
        return fail(path, "examine", errno);
    if (!S_ISREG(st.st_mode))
        return refuse(path, st.st_mode);
    // One byte more than allowed tells a file at the limit from a longer one.
    bytes.resize(std::min<size_t>(size_t(st.st_size), maxBytes) + 1);
    size_t filled = 0;
    for (;;) {
        if (filled == bytes.size())
            bytes.resize(std::min(bytes.size() * 2, maxBytes + 1));
        if (filled > maxBytes)
            break;
        const ssize_t n = ::read(fd.Get(), bytes.data() + filled, bytes.size() - filled);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            return fail(path, "read", errno);
        if (n == 0)
            break;
        filled += size_t(n);
    }
    if (filled <= maxBytes) {
        bytes.resize(filled);
        return Result::Read;
    }
    bytes.resize(maxBytes);
    TK_LOG(LogError) << path << " is larger than the limit of " << maxBytes << " bytes; only the first "
                     << maxBytes << " bytes are read";
    return Result::Truncated;
}

} // namespace Toolkit

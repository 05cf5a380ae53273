#include "Toolkit/FSStream.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/UTF8.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Toolkit {

FSStream::FSStream(const TString<char>& path, int mode) : m_path(path) { open(mode); }

FSStream::FSStream(const TString<wchar_t>& path, int mode) : m_path(UTF8::ToUTF8(path)) { open(mode); }

FSStream::~FSStream() { Close(); }

void FSStream::open(int mode)
{
    int flags = O_CLOEXEC;
    switch (mode) {
    case ModeRead: flags |= O_RDONLY; break;
    case ModeWrite: flags |= O_WRONLY | O_CREAT | O_TRUNC; break;
    case ModeAppend: flags |= O_WRONLY | O_CREAT | O_APPEND; break;
    case ModeReadWrite: flags |= O_RDWR; break;
    default:
        m_openError = EINVAL;
        TK_LOG(LogError) << "cannot open " << m_path << ": unknown open mode " << mode;
        return;
    }
    do {
        m_fd = ::open(m_path.c_str(), flags, 0644);
    } while (m_fd < 0 && errno == EINTR);
    if (m_fd >= 0)
        return;
    m_openError = errno;
    if (!(mode == ModeRead && m_openError == ENOENT))
        TK_LOG(LogError) << "cannot open " << m_path << ": " << std::strerror(m_openError);
}

void FSStream::Close()
{
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
}

void FSStream::logIoError(const char* what, int error)
{
    TK_LOG(LogError) << "cannot " << what << ' ' << m_path << ": " << std::strerror(error);
}

long long FSStream::Length() const
{
    struct stat st {};
    if (m_fd < 0 || ::fstat(m_fd, &st) != 0)
        return -1;
    return static_cast<long long>(st.st_size);
}

long long FSStream::Read(void* buffer, size_t size)
{
    if (m_fd < 0)
        return -1;
    auto* p = static_cast<char*>(buffer);
    size_t done = 0;
    while (done < size) {
        const ssize_t n = ::read(m_fd, p + done, size - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0) {
            logIoError("read", errno);
            return -1;
        }
        if (n == 0)
            break;
        done += size_t(n);
    }
    return static_cast<long long>(done);
}

long long FSStream::Write(const void* buffer, size_t size)
{
    if (m_fd < 0)
        return -1;
    const auto* p = static_cast<const char*>(buffer);
    size_t done = 0;
    while (done < size) {
        const ssize_t n = ::write(m_fd, p + done, size - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0) {
            logIoError("write", errno);
            return -1;
        }
        done += size_t(n);
    }
    return static_cast<long long>(done);
}

bool FSStream::ReadAll(std::vector<unsigned char>& bytes)
{
    if (m_fd < 0)
        return false;
    const long long length = Length();
    const long long here = Tell();
    if (length > here && here >= 0)
        bytes.reserve(bytes.size() + size_t(length - here));
    unsigned char chunk[65536];
    for (;;) {
        const long long n = Read(chunk, sizeof chunk);
        if (n < 0)
            return false;
        if (n == 0)
            return true;
        bytes.insert(bytes.end(), chunk, chunk + n);
    }
}

bool FSStream::Seek(long long offset)
{
    if (m_fd < 0)
        return false;
    if (::lseek(m_fd, off_t(offset), SEEK_SET) < 0) {
        logIoError("seek in", errno);
        return false;
    }
    return true;
}

long long FSStream::Tell() const
{
    if (m_fd < 0)
        return -1;
    return static_cast<long long>(::lseek(m_fd, 0, SEEK_CUR));
}

bool FSStream::Flush()
{
    if (m_fd < 0)
        return false;
    if (::fsync(m_fd) != 0) {
        logIoError("flush", errno);
        return false;
    }
    return true;
}

} // namespace Toolkit

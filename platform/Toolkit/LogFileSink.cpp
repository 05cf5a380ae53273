#include "Toolkit/LogFileSink.h"

#include "Toolkit/UTF8.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

namespace Toolkit {

LogFileSink::LogFileSink(const TString<char>& path, size_t maxBytes) : m_path(path), m_maxBytes(maxBytes)
{
    open();
}

bool LogFileSink::open()
{
    // O_NONBLOCK: a FIFO planted at the path must not hold the process up;
    // O_NOFOLLOW: nor may a symlink send the entries elsewhere.
    FileDescriptor file(::open(m_path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC, 0600));
    struct stat st {};
    if (!file.IsValid() || ::fstat(file.Get(), &st) != 0) {
        m_error = std::strerror(errno);
        return false;
    }
    if (!S_ISREG(st.st_mode)) {
        m_error = "not a regular file";
        return false;
    }
    if ((st.st_mode & 077) != 0)
        ::fchmod(file.Get(), st.st_mode & 0700);
    m_file = std::move(file);
    m_size = size_t(st.st_size);
    return true;
}

void LogFileSink::rotate()
{
    const auto previous = m_path + ".1";
    m_file.Reset();
    std::rename(m_path.c_str(), previous.c_str());
    open();
}

void LogFileSink::append(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t n = ::write(m_file.Get(), bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return; // a full disk loses the entry; nothing better to do in a sink
        bytes.remove_prefix(size_t(n));
        m_size += size_t(n);
    }
}

void LogFileSink::Write(const LogEntry& entry)
{
    const std::string line = UTF8::ToUTF8(ILogger::Format(entry)) + '\n';
    if (m_size > 0 && m_size + line.size() > m_maxBytes)
        rotate();
    if (m_file.IsValid())
        append(line);
}

} // namespace Toolkit

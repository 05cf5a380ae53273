#include "Toolkit/SingleApplicationInstance.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/RuntimeDirectory.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <unistd.h>

namespace Toolkit {

SingleApplicationInstance& SingleApplicationInstance::Instance()
{
    // Never destroyed: the claim must last until the process ends.
    static SingleApplicationInstance* instance = new SingleApplicationInstance();
    return *instance;
}

SingleApplicationInstance::SingleApplicationInstance(const TString<wchar_t>& name)
    : m_path(RuntimeDirectory::PrepareFile(RuntimeDirectory::FileName(name, ".lock")))
{
    if (!m_path.empty())
        claim();
}

void SingleApplicationInstance::claim()
{
    FileDescriptor file(::open(m_path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!file.IsValid()) {
        TK_LOG(LogError) << "cannot open single-instance lock file " << m_path << ": " << std::strerror(errno);
        return;
    }
    if (::flock(file.Get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno == EWOULDBLOCK) {
            m_alreadyRunning = true;
            TK_LOG(LogInfo) << "another instance holds " << m_path;
        } else {
            TK_LOG(LogError) << "cannot lock single-instance lock file " << m_path << ": " << std::strerror(errno);
        }
        return;
    }
    // The holder's pid, for whoever looks at the file; the lock is what counts.
    const std::string pid = std::to_string(::getpid()) + "\n";
    if (::ftruncate(file.Get(), 0) != 0 || ::write(file.Get(), pid.data(), pid.size()) != ssize_t(pid.size()))
        TK_LOG(LogError) << "cannot write the pid into " << m_path << ": " << std::strerror(errno);
    m_lockFile = std::move(file);
}

} // namespace Toolkit

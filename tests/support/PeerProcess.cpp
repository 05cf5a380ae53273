#include "PeerProcess.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace testsupport {

PeerProcess::PeerProcess(const std::vector<std::string>& arguments, const std::string& program,
                         const std::vector<std::string>& environment)
{
    int out[2];
    if (::pipe2(out, O_CLOEXEC) != 0)
        return;
    std::vector<char*> argv{const_cast<char*>(program.c_str())};
    for (const auto& a : arguments)
        argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    std::vector<char*> envp;
    for (char** variable = environ; *variable; ++variable)
        envp.push_back(*variable);
    for (const auto& variable : environment)
        envp.push_back(const_cast<char*>(variable.c_str()));
    envp.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    if (::posix_spawn(&m_pid, program.c_str(), &actions, nullptr, argv.data(), envp.data()) != 0)
        m_pid = -1;
    posix_spawn_file_actions_destroy(&actions);
    ::close(out[1]);
    m_output = out[0];
}

PeerProcess::~PeerProcess()
{
    Kill();
    Wait();
    if (m_output >= 0)
        ::close(m_output);
}

std::string PeerProcess::ReadLine()
{
    std::string line;
    char c;
    pollfd fd{m_output, POLLIN, 0};
    while (::poll(&fd, 1, 10000) == 1 && ::read(m_output, &c, 1) == 1 && c != '\n')
        line += c;
    return line;
}

void PeerProcess::Kill()
{
    if (m_pid > 0 && m_status < 0)
        ::kill(m_pid, SIGKILL);
}

int PeerProcess::Wait()
{
    if (m_pid <= 0 || m_status >= 0)
        return m_pid <= 0 ? -1 : m_status;
    int status = 0;
    while (::waitpid(m_pid, &status, 0) < 0) {
        if (errno != EINTR)
            return -1;
    }
    m_status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return m_status;
}

} // namespace testsupport

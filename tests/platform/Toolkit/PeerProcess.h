#pragma once
// Runs the ipc_peer helper program as a second process and reads its output.
#include <string>
#include <sys/types.h>
#include <vector>

namespace testsupport {

class PeerProcess {
public:
    explicit PeerProcess(const std::vector<std::string>& arguments);
    ~PeerProcess(); // kills the peer if it still runs
    PeerProcess(const PeerProcess&) = delete;
    PeerProcess& operator=(const PeerProcess&) = delete;

    bool Started() const { return m_pid > 0; }
    // One line of output without its newline; empty after 10 s or at EOF.
    std::string ReadLine();
    void Kill();
    // The exit code (128 + signal when killed), -1 if it cannot be had.
    int Wait();

private:
    pid_t m_pid = -1;
    int m_output = -1;
    int m_status = -1;
};

} // namespace testsupport

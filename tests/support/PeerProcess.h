#pragma once
// Runs a program (the ipc_peer helper unless told otherwise) as a second
// process, with more environment variables if given, and reads its output;
// its error output is dropped.
#include <string>
#include <sys/types.h>
#include <vector>

namespace testsupport {

class PeerProcess {
public:
    explicit PeerProcess(const std::vector<std::string>& arguments,
                         const std::string& program = UIKIT_BIN_DIR "/ipc_peer",
                         const std::vector<std::string>& environment = {});
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

// The connection manager started twice: the second start brings the first
// window to the front and ends with success, leaving one window.
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const std::string c_host = std::string(UIKIT_BIN_DIR) + "/connection-manager";

// Starts the host with its run-time, state and configuration folders in the
// given place, its output in a file there; the child's pid.
pid_t startHost(const testsupport::TempDir& home, const std::string& output)
{
    // Everything the child needs is prepared before fork: the test binary
    // has threads, so the child only redirects and executes.
    std::vector<std::string> environment;
    for (char** variable = environ; *variable; ++variable)
        environment.emplace_back(*variable);
    for (const char* name : {"UIKIT_RUNTIME_DIR", "UIKIT_STATE_DIR", "UIKIT_CONFIG_DIR"})
        environment.push_back(std::string(name) + "=" + home.Str());
    std::vector<char*> envp;
    for (auto& entry : environment)
        envp.push_back(entry.data());
    envp.push_back(nullptr);
    const std::string outputPath = home.Str() + "/" + output;
    char* argv[] = {const_cast<char*>(c_host.c_str()), nullptr};

    const pid_t pid = fork();
    if (pid == 0) {
        const int out = open(outputPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const int null = open("/dev/null", O_WRONLY);
        if (out < 0 || null < 0 || dup2(out, 1) < 0 || dup2(null, 2) < 0)
            _exit(126);
        execve(argv[0], argv, envp.data());
        _exit(127);
    }
    return pid;
}

int exitStatus(pid_t pid)
{
    int status = 0;
    if (waitpid(pid, &status, 0) != pid)
        return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

bool listening(const testsupport::TempDir& home)
{
    for (const auto& entry : std::filesystem::recursive_directory_iterator(home.Path()))
        if (entry.path().extension() == ".ipc")
            return true;
    return false;
}

TEST(SecondStartTest, BringsTheFirstWindowForwardAndExitsWithSuccess)
{
    ASSERT_TRUE(std::filesystem::exists(c_host)) << c_host;
    testsupport::TempDir home;
    const pid_t first = startHost(home, "first.txt");
    ASSERT_GT(first, 0);
    // The first start opens its activation channel once its pack is loaded.
    const bool ready = testsupport::ProcessEventsUntil([&] { return listening(home); }, 20000);
    if (ready) {
        const pid_t second = startHost(home, "second.txt");
        EXPECT_EQ(exitStatus(second), 0);
        std::string said;
        if (FILE* out = std::fopen((home.Str() + "/second.txt").c_str(), "r")) {
            char line[256];
            while (std::fgets(line, sizeof line, out))
                said += line;
            std::fclose(out);
        }
        EXPECT_NE(said.find("brought its window to the front"), std::string::npos) << said;
    }
    kill(first, SIGTERM);
    exitStatus(first);
    EXPECT_TRUE(ready) << "the first start never opened its activation channel";
}

} // namespace

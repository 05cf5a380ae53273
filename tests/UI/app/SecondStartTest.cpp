// The connection manager started twice: the second start brings the first
// window to the front and ends with success, leaving one window.
#include "PeerProcess.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

bool listening(const testsupport::TempDir& home)
{
    for (const auto& entry : std::filesystem::recursive_directory_iterator(home.Path()))
        if (entry.path().extension() == ".ipc")
            return true;
    return false;
}

TEST(SecondStartTest, BringsTheFirstWindowForwardAndExitsWithSuccess)
{
    const std::string host = std::string(UIKIT_BIN_DIR) + "/connection-manager";
    ASSERT_TRUE(std::filesystem::exists(host)) << host;
    // Run-time, state and configuration folders of both starts in one place.
    testsupport::TempDir home;
    std::vector<std::string> environment;
    for (const char* name : {"UIKIT_RUNTIME_DIR", "UIKIT_STATE_DIR", "UIKIT_CONFIG_DIR"})
        environment.push_back(std::string(name) + "=" + home.Str());
    testsupport::PeerProcess first({}, host, environment);
    ASSERT_TRUE(first.Started());
    // The first start opens its activation channel once its pack is loaded.
    ASSERT_TRUE(testsupport::ProcessEventsUntil([&] { return listening(home); }, 20000))
        << "the first start never opened its activation channel";

    testsupport::PeerProcess second({}, host, environment);
    bool told = false;
    for (int line = 0; line < 50 && !told; ++line)
        told = second.ReadLine().find("brought its window to the front") != std::string::npos;
    EXPECT_EQ(second.Wait(), 0);
    EXPECT_TRUE(told);
}

} // namespace

// The connection history on disk (a session written is read back by the
// connection scenario test): a damaged file keeps its good lines, and a
// history that cannot be written loses nothing it had. The recorder makes
// one entry per connection that ends.
#include "TestSupport.h"
#include "history/ConnectionHistory.h"
#include "history/ConnectionRecorder.h"

#include "Devices/Device.h"

#include <gtest/gtest.h>

namespace {

using historyplugin::ConnectionHistory;
using historyplugin::HistoryEntry;

const HistoryEntry c_first{L"2026-03-14 08:30:00", 3600, 1000, 250000, L"Clé 4G"};
const HistoryEntry c_second{L"2026-03-15 21:05:09", 42, 7, 9, L"Modem"};

TEST(ConnectionHistoryTest, ADamagedFileKeepsItsGoodLinesAndLogsEachBadOneOnce)
{
    const std::string good = ConnectionHistory::FormatLine(c_first) + "\n";
    const struct {
        const char* name;
        std::string content;
        size_t kept;
        const wchar_t* logged; // empty: nothing logged
    } cases[] = {
        {"comments and blank lines", "# header\n\n" + good, 1, L""},
        {"too few fields", good + "2026-03-14 08:30:00\t1\t2\n", 1, L"history:2: expected 5 fields"},
        {"not a date", "yesterday\t1\t2\t3\tModem\n" + good, 1, L"history:1: the start is not"},
        {"negative count", good + "# x\n2026-03-14 08:30:00\t1\t-2\t3\tModem\n", 1, L"history:3: the duration"},
        {"number with junk", "2026-03-14 08:30:00\t1x\t2\t3\tModem\n", 0, L"history:1:"},
    };
    for (const auto& c : cases) {
        testsupport::TempDir state;
        state.Write(ConnectionHistory::c_fileName, c.content);
        testsupport::LogCapture log;
        ConnectionHistory history(state.Str());
        EXPECT_EQ(history.Entries().size(), c.kept) << c.name;
        const bool logs = *c.logged != L'\0';
        EXPECT_EQ(log.Size(), logs ? 1u : 0u) << c.name << log.Dump();
        EXPECT_TRUE(!logs || log.Contains(c.logged)) << c.name << log.Dump();
    }
}

TEST(ConnectionHistoryTest, AHistoryThatCannotBeWrittenLogsOnceAndLosesNothing)
{
    testsupport::TempDir state;
    // A directory that cannot be made: its parent is a file.
    state.Write("file", "x");
    {
        testsupport::LogCapture log;
        ConnectionHistory history(state.Str() + "/file/app");
        EXPECT_FALSE(history.Append(c_first));
        EXPECT_FALSE(history.Append(c_second));
        EXPECT_EQ(history.Entries(), (std::vector<HistoryEntry>{c_first, c_second}));
        EXPECT_EQ(log.Size(), 1u) << log.Dump();
    }
}

TEST(ConnectionRecorderTest, EachConnectionThatEndsMakesOneEntry)
{
    testsupport::FakeClock clock(10000);
    std::vector<HistoryEntry> recorded;
    historyplugin::ConnectionRecorder recorder([&](const HistoryEntry& e) { recorded.push_back(e); });
    Devices::DeviceInfo info;
    info.name = L"Modem";
    Devices::Device device(7, info, nullptr);
    auto update = [&](Devices::DeviceState state, uint64_t sent, uint64_t received, bool lost = false) {
        info.state = state;
        info.connectedSince = state == Devices::DeviceStateConnected ? 10000 : 0;
        info.bytesSent = sent;
        info.bytesReceived = received;
        device.SetInfo(info);
        lost ? recorder.OnDeviceLost(device) : recorder.OnDeviceUpdated(device);
    };
    update(Devices::DeviceStateRegistered, 0, 0);
    update(Devices::DeviceStateConnected, 100, 200);
    clock.Advance(65000);
    update(Devices::DeviceStateConnected, 300, 900);
    update(Devices::DeviceStateDisconnecting, 0, 0); // counters reset as the link goes
    update(Devices::DeviceStateRegistered, 0, 0);
    ASSERT_EQ(recorded.size(), 1u);
    EXPECT_EQ(ConnectionHistory::FormatLine(recorded[0]).substr(19), "\t65\t300\t900\tModem") << "after the start";

    update(Devices::DeviceStateConnected, 5, 5);
    update(Devices::DeviceStateConnected, 5, 5, true); // pulled out while connected
    EXPECT_EQ(recorded.size(), 2u);
    recorder.Detach();
    update(Devices::DeviceStateConnected, 5, 5);
    update(Devices::DeviceStateRegistered, 5, 5);
    EXPECT_EQ(recorded.size(), 2u) << "nothing after Detach";
}

} // namespace

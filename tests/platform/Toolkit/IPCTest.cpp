#include "Toolkit/IPCClient.h"
#include "Toolkit/IPCProtocol.h"
#include "Toolkit/IPCServer.h"
#include "Toolkit/PathManager.h"
#include "Toolkit/SingleApplicationInstance.h"
#include "Toolkit/UTF8.h"

#include "PeerProcess.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <cstring>
#include <filesystem>
#include <future>
#include <mutex>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using Toolkit::IPCClient;
using Toolkit::IPCServer;
using Toolkit::TString;

// Collects the commands a server delivers.
class RecordingHandler : public Toolkit::IPCConnectionEvent {
public:
    void OnExecute(TString<wchar_t> command) override
    {
        std::lock_guard lock(m_mutex);
        m_commands.push_back(command);
        m_changed.notify_all();
    }
    // Waits (bounded) until `count` commands have arrived.
    std::vector<TString<wchar_t>> WaitFor(size_t count)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait_for(lock, std::chrono::seconds(10), [&] { return m_commands.size() >= count; });
        return m_commands;
    }
private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<TString<wchar_t>> m_commands;
};

class ThrowingHandler : public Toolkit::IPCConnectionEvent {
public:
    void OnExecute(TString<wchar_t>) override { throw std::runtime_error("window already gone"); }
};

// Each test gets its own application name and runtime directory, so test
// processes running side by side never share a channel or a claim.
class IPCTest : public testing::Test {
protected:
    void SetUp() override
    {
        static int serial = 0;
        m_app = "ipctest-" + std::to_string(::getpid()) + "-" + std::to_string(++serial);
        m_runtime = m_dir.Str() + "/run/" + m_app;
        Toolkit::PathManager::Instance().SetRuntimeDir(m_runtime);
        Toolkit::PathManager::Instance().SetApplicationName(m_app);
    }
    void TearDown() override
    {
        Toolkit::PathManager::Instance().SetRuntimeDir("");
        Toolkit::PathManager::Instance().SetApplicationName("");
    }
    static sockaddr_un Address(const std::string& path)
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
        return address;
    }
    // A connected raw socket to the server, with a bounded read time.
    int RawConnect(const IPCServer& server)
    {
        const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const sockaddr_un address = Address(server.GetSocketPath());
        timeval tv{10, 0};
        ::setsockopt(fd, SOL_SOCKET, SO_RCVTIMEO, &tv, sizeof tv);
        EXPECT_EQ(::connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        return fd;
    }
    // Reads until the server closes the connection; false on time-out.
    static bool ServerCloses(int fd)
    {
        char buffer[64];
        ssize_t n;
        while ((n = ::recv(fd, buffer, sizeof buffer, 0)) > 0) {
        }
        return n == 0;
    }
    int PeerClaim() { return testsupport::PeerProcess({"claim", m_runtime, m_app}).Wait(); }
    std::wstring PeerTag() const
    {
        return L"pid " + std::to_wstring(::getpid()) + L" uid " + std::to_wstring(::geteuid());
    }

    testsupport::TempDir m_dir;
    std::string m_app;
    std::string m_runtime;
};

TEST_F(IPCTest, SecondProcessActivatesTheFirst)
{
    IPCServer server;
    auto handler = Toolkit::make_smart<RecordingHandler>();
    server.AddConnectionHandler(handler);
    ASSERT_TRUE(server.Run());

    struct stat st {};
    ASSERT_EQ(::stat(server.GetSocketPath().c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0600u);

    testsupport::PeerProcess peer({"send", m_runtime, m_app, "", "IPC_ACTIVATE"});
    EXPECT_EQ(peer.Wait(), 0) << "the peer's command was not acknowledged";
    EXPECT_EQ(handler->WaitFor(1), std::vector<TString<wchar_t>>{L"IPC_ACTIVATE"});

    // Non-ASCII text survives the trip; a named channel is a different one.
    EXPECT_TRUE(IPCClient::Connect(L"", L"Gr\u00FC\u00DFe \u2713"));
    EXPECT_EQ(handler->WaitFor(2).back(), L"Gr\u00FC\u00DFe \u2713");
    EXPECT_FALSE(IPCClient::Connect(L"other", L"IPC_ACTIVATE"));

    server.Stop();
    EXPECT_NE(::access(server.GetSocketPath().c_str(), F_OK), 0) << "the socket file outlives the server";
}

TEST_F(IPCTest, MalformedClientsAreLoggedAndIgnored)
{
    using Toolkit::IPCProtocol;
    const std::string tooLong = {'T', 'K', 'I', 'P', 1, 1, 0, 0, 0, 1, 0, 1}; // 65537 bytes announced
    const struct {
        const char* name;
        std::string bytes;
        const wchar_t* logged;
    } cases[] = {
        {"garbage", "GET / HTTP/1.0\r\n\r\n", L"bad magic"},
        {"future version", std::string("TKIP\x09\x01\0\0\0\0\0\0", 12), L"unsupported protocol version 9"},
        {"unknown kind", std::string("TKIP\x01\x07\0\0\0\0\0\0", 12), L"unknown message kind 7"},
        {"oversized", tooLong, L"65537 bytes is over the limit of 65536"},
        {"acknowledgement sent to the server", IPCProtocol::Encode(IPCProtocol::Ack, ""), L"not a command"},
        {"truncated payload", IPCProtocol::Encode(IPCProtocol::Command, "IPC_ACTIVATE").substr(0, 15),
         L"connection closed after 15 bytes"},
    };
    testsupport::FakeClock clock;
    IPCServer server;
    auto handler = Toolkit::make_smart<RecordingHandler>();
    server.AddConnectionHandler(handler);
    ASSERT_TRUE(server.Run());
    size_t served = 0;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        clock.Advance(IPCServer::c_refusalLogIntervalMs); // past the throttle of refusal entries
        testsupport::LogCapture log;
        const int fd = RawConnect(server);
        ASSERT_EQ(::send(fd, c.bytes.data(), c.bytes.size(), MSG_NOSIGNAL), ssize_t(c.bytes.size()));
        ::shutdown(fd, SHUT_WR);
        EXPECT_TRUE(ServerCloses(fd));
        ::close(fd);
        // The server keeps serving, and the bad message reached no handler.
        EXPECT_TRUE(IPCClient::Connect(L"", Toolkit::UTF8::ToUNICODE(c.name)));
        const auto commands = handler->WaitFor(++served);
        ASSERT_EQ(commands.size(), served);
        EXPECT_EQ(commands.back(), Toolkit::UTF8::ToUNICODE(c.name));
        size_t matching = 0;
        for (const auto& e : log.Entries())
            matching += e.message.HasSubstring(c.logged) && e.message.HasSubstring(PeerTag()) &&
                        e.severity == Toolkit::LogError;
        EXPECT_EQ(matching, 1u) << log.Dump();
    }
}

TEST_F(IPCTest, SilentClientTimesOutWithoutBlockingOthers)
{
    testsupport::FakeClock clock;
    testsupport::LogCapture log;
    IPCServer server;
    auto handler = Toolkit::make_smart<RecordingHandler>();
    server.AddConnectionHandler(handler);
    ASSERT_TRUE(server.Run());

    const int silent = RawConnect(server);
    // Served while the silent client is still connected; the server accepts
    // clients in order, so the silent one is now waited for too.
    ASSERT_TRUE(IPCClient::Connect(L"", L"IPC_ACTIVATE"));
    EXPECT_EQ(handler->WaitFor(1).size(), 1u);
    EXPECT_FALSE(log.Contains(L"no complete message"));

    clock.Advance(IPCServer::c_readTimeoutMs);
    EXPECT_TRUE(ServerCloses(silent));
    ::close(silent);
    EXPECT_EQ(log.Count(PeerTag() + L" on " + Toolkit::UTF8::ToUNICODE(server.GetSocketPath()) +
                        L": no complete message within 2000 ms; ignored"),
              1u)
        << log.Dump();
}

// A flood of connections from one process can neither stop another start
// from activating the first nor flood the log: refusals come once a second.
TEST_F(IPCTest, FloodOfConnectionsCannotStopActivation)
{
    testsupport::FakeClock clock;
    IPCServer server;
    auto handler = Toolkit::make_smart<RecordingHandler>();
    server.AddConnectionHandler(handler);
    ASSERT_TRUE(server.Run());
    testsupport::LogCapture log;
    for (int round = 1; round <= 2; ++round) {
        SCOPED_TRACE(round);
        std::vector<int> flood;
        for (int i = 0; i < 200; ++i)
            flood.push_back(RawConnect(server));
        testsupport::PeerProcess peer({"send", m_runtime, m_app, "", "IPC_ACTIVATE"});
        EXPECT_EQ(peer.Wait(), 0) << "the second start could not activate the first";
        EXPECT_EQ(handler->WaitFor(size_t(round)).size(), size_t(round));
        for (const int fd : flood)
            ::close(fd);
        // The next round starts a second later; entries for the closed
        // clients still in flight then fall into the last second, not a third.
        if (round == 1)
            clock.Advance(IPCServer::c_refusalLogIntervalMs);
    }
    const auto refusals = log.Count(L"IPC peer " + PeerTag());
    EXPECT_EQ(refusals, 2u) << log.Dump();
    EXPECT_TRUE(log.Contains(L"refused: 4 connections of this process are already waiting")) << log.Dump();
    EXPECT_TRUE(log.Contains(L"more refused or dropped clients not logged)")) << log.Dump();
}

// A handler that finishes on another thread keeps the acknowledgement; the
// client hears nothing until it lets go.
TEST_F(IPCTest, ClientIsAcknowledgedOnceHandlersAreDone)
{
    struct DeferringHandler : Toolkit::IPCConnectionEvent {
        void OnExecute(TString<wchar_t>) override {}
        void OnCommand(TString<wchar_t>, Toolkit::smart_ptr<Toolkit::IPCAcknowledgement> ack) override
        {
            held.set_value(std::move(ack));
        }
        std::promise<Toolkit::smart_ptr<Toolkit::IPCAcknowledgement>> held;
    };
    IPCServer server;
    auto deferring = Toolkit::make_smart<DeferringHandler>();
    auto recording = Toolkit::make_smart<RecordingHandler>();
    server.AddConnectionHandler(deferring);
    server.AddConnectionHandler(recording);
    ASSERT_TRUE(server.Run());

    const int fd = RawConnect(server);
    const std::string command = Toolkit::IPCProtocol::Encode(Toolkit::IPCProtocol::Command, "IPC_ACTIVATE");
    ASSERT_EQ(::send(fd, command.data(), command.size(), MSG_NOSIGNAL), ssize_t(command.size()));
    auto held = deferring->held.get_future();
    ASSERT_EQ(held.wait_for(std::chrono::seconds(10)), std::future_status::ready);
    auto ack = held.get();
    EXPECT_EQ(recording->WaitFor(1).size(), 1u);
    char reply[64];
    EXPECT_EQ(::recv(fd, reply, sizeof reply, MSG_DONTWAIT), -1) << "acknowledged before the handler was done";
    ack = nullptr;
    EXPECT_EQ(::recv(fd, reply, sizeof reply, 0), ssize_t(Toolkit::IPCProtocol::c_headerSize));
    ::close(fd);
}

TEST_F(IPCTest, StaleSocketIsReplacedButALiveOneIsNot)
{
    testsupport::LogCapture log;
    // A socket file whose process is gone: bound, never listened, closed.
    ASSERT_EQ(::mkdir((m_dir.Str() + "/run").c_str(), 0700), 0);
    ASSERT_EQ(::mkdir(m_runtime.c_str(), 0700), 0);
    const std::string path = m_runtime + "/" + m_app + ".ipc";
    const int stale = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const sockaddr_un address = Address(path);
    ASSERT_EQ(::bind(stale, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(stale);
    IPCServer first;
    ASSERT_TRUE(first.Run());
    EXPECT_TRUE(log.Contains(L"replaced stale IPC socket " + Toolkit::UTF8::ToUNICODE(path)));

    IPCServer second(L"");
    EXPECT_FALSE(second.Run());
    EXPECT_TRUE(log.Contains(L"is already served by another process"));
    auto handler = Toolkit::make_smart<RecordingHandler>();
    first.AddConnectionHandler(handler);
    EXPECT_TRUE(IPCClient::Connect(L"", L"still here"));
    EXPECT_EQ(handler->WaitFor(1).size(), 1u);

    first.Stop();

    // What is not a socket is never removed.
    testsupport::LogCapture refusals;
    const auto blocker = m_dir.Write("run/" + m_app + "/blocked.ipc", "keep me");
    IPCServer blocked(L"blocked");
    EXPECT_FALSE(blocked.Run());
    EXPECT_TRUE(refusals.Contains(L"a file that is not a socket is in the way"));
    EXPECT_TRUE(std::filesystem::exists(blocker));
    IPCServer tooLong(TString<wchar_t>(120, L'x'));
    EXPECT_FALSE(tooLong.Run());
    EXPECT_TRUE(refusals.Contains(L"IPC socket path is too long"));
    EXPECT_EQ(refusals.Size(), 2u) << refusals.Dump();
}

TEST_F(IPCTest, AThrowingHandlerStopsNobodyAndARemovedOneHearsNothing)
{
    testsupport::LogCapture log;
    IPCServer server(L"handlers");
    auto first = Toolkit::make_smart<RecordingHandler>();
    auto second = Toolkit::make_smart<RecordingHandler>();
    server.AddConnectionHandler(first);
    server.AddConnectionHandler(Toolkit::make_smart<ThrowingHandler>());
    server.AddConnectionHandler(second);
    ASSERT_TRUE(server.Run());
    ASSERT_TRUE(IPCClient::Connect(L"handlers", L"one"));
    EXPECT_EQ(first->WaitFor(1).size(), 1u);
    EXPECT_EQ(second->WaitFor(1).size(), 1u) << "a throwing handler stops nobody";
    EXPECT_EQ(log.Count(L"failed: window already gone"), 1u) << log.Dump();

    server.RemoveConnectionHandler(first);
    ASSERT_TRUE(IPCClient::Connect(L"handlers", L"two"));
    EXPECT_EQ(second->WaitFor(2).size(), 2u);
    EXPECT_EQ(first->WaitFor(0).size(), 1u);
}

using Toolkit::SingleApplicationInstance;

TEST_F(IPCTest, SingleInstanceClaimIsSeenFromAnotherProcessAndEndsWithIt)
{
    {
        SingleApplicationInstance mine;
        EXPECT_FALSE(mine.IsAlreadyRunning());
        struct stat st {};
        ASSERT_EQ(::stat(m_runtime.c_str(), &st), 0);
        EXPECT_EQ(st.st_mode & 0777, 0700u);

        EXPECT_EQ(PeerClaim(), 3) << "the second process must see this one running";
    }
    EXPECT_EQ(PeerClaim(), 0) << "the claim is released with its holder";

    // A holder that dies without any clean-up still releases the claim.
    testsupport::PeerProcess holder({"hold", m_runtime, m_app});
    ASSERT_EQ(holder.ReadLine(), "claimed");
    SingleApplicationInstance whileHeld;
    EXPECT_TRUE(whileHeld.IsAlreadyRunning());
    holder.Kill();
    holder.Wait();
    EXPECT_FALSE(SingleApplicationInstance().IsAlreadyRunning());
}

TEST_F(IPCTest, SingleInstanceUnusableRuntimeDirectoryLetsTheProcessRun)
{
    testsupport::LogCapture log;
    m_dir.Write("file", "not a directory");
    Toolkit::PathManager::Instance().SetRuntimeDir(m_dir.Str() + "/file/run");
    SingleApplicationInstance instance;
    EXPECT_FALSE(instance.IsAlreadyRunning());
    EXPECT_EQ(log.Count(L"cannot create runtime directory " + Toolkit::UTF8::ToUNICODE(m_dir.Str())), 1u) << log.Dump();
}

} // namespace

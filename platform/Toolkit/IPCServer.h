#pragma once
// The listening end of a named IPC channel: a Unix-domain socket in the
// application's runtime directory that only processes of the same user may
// use. Run() starts a thread that accepts clients, reads one command from
// each and hands it to every registered IPCConnectionEvent.
//
// Threads: handlers are called on the server's own thread, one command at
// a time, outside the server's lock; handlers that touch windows must hand
// the work to the GUI thread. A handler removed while a command is being
// delivered may still receive that one command (the server holds its own
// reference until then). The client is acknowledged once every handler is
// done with its command (IPCConnectionEvent::OnCommand).
//
// Malformed, oversized, truncated or silent clients, and clients of another
// user, are dropped; they never stop the server from serving others. A
// command that has fully arrived is served before anything else is waited
// for; a peer (process) may keep only a few connections pending, and when
// too many are pending the oldest is dropped for the newcomer. These
// refusals are logged (naming the peer's pid and uid) at most once a second.
#include "Toolkit/FileDescriptor.h"
#include "Toolkit/IPCConnectionEvent.h"
#include "Toolkit/IPCProtocol.h"
#include "Toolkit/LogThrottle.h"
#include "Toolkit/Mutex.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

#include <memory>
#include <sys/types.h>
#include <thread>
#include <vector>

namespace Toolkit {

class IPCServerConnection;

class IPCServer {
public:
    // A client must deliver its whole command within this many milliseconds
    // (GetTickCount) of being accepted.
    static constexpr unsigned c_readTimeoutMs = 2000;
    // Clients waited for at once; a newcomer beyond makes the oldest go.
    static constexpr size_t c_maxClients = 32;
    // Clients of one process waited for at once; more are refused.
    static constexpr size_t c_maxClientsPerPeer = 4;
    // New connections taken per round, so that pending clients are served
    // between the batches of a flood.
    static constexpr size_t c_acceptBatch = 64;
    // Refusals and dropped clients are logged at most this often.
    static constexpr unsigned c_refusalLogIntervalMs = 1000;

    // The empty name is the application's default channel.
    explicit IPCServer(const TString<wchar_t>& name = TString<wchar_t>());
    ~IPCServer();
    IPCServer(const IPCServer&) = delete;
    IPCServer& operator=(const IPCServer&) = delete;

    // Starts listening. False, with a log entry, when the socket cannot be
    // made or another live process already serves the channel. A socket file
    // left behind by a dead process is replaced. True if already running.
    bool Run();
    // Stops listening and waits for the server thread; removes the socket.
    void Stop();
    bool IsRunning() const { return m_thread.joinable(); }

    // Guards the handler list; callers may hold it around several changes.
    Mutex& GetLock() { return m_lock; }
    void AddConnectionHandler(smart_ptr<IPCConnectionEvent> handler);
    // Removes the first registration of the same object.
    void RemoveConnectionHandler(const smart_ptr<IPCConnectionEvent>& handler);

    const TString<wchar_t>& GetName() const { return m_name; }
    // The socket file; empty until Run() has resolved it.
    const TString<char>& GetSocketPath() const { return m_path; }

private:
    bool replaceStaleSocket();
    void serve();
    using Clients = std::vector<std::unique_ptr<IPCServerConnection>>;
    void acceptClients(Clients& clients);
    void admit(Clients& clients, std::unique_ptr<IPCServerConnection> client);
    // True when the client is finished with (served or dropped).
    bool serviceClient(IPCServerConnection& client);
    void expireClients(Clients& clients);
    void dispatch(const TString<wchar_t>& command, const smart_ptr<IPCAcknowledgement>& ack);
    // Logs a refused or dropped client, throttled.
    void refuse(const IPCProtocol::Peer& peer, const std::string& what);
    void closeListener();

    TString<wchar_t> m_name;
    TString<char> m_path;
    Mutex m_lock;
    std::vector<smart_ptr<IPCConnectionEvent>> m_handlers;
    LogThrottle m_refusals{c_refusalLogIntervalMs}; // server thread only

    FileDescriptor m_listener;
    FileDescriptor m_wakeRead;
    FileDescriptor m_wakeWrite;
    // Identity of the socket file we bound, so Stop() removes only ours.
    dev_t m_socketDev = 0;
    ino_t m_socketIno = 0;
    std::thread m_thread;
};

} // namespace Toolkit

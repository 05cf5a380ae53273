#include "Toolkit/IPCServer.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/IPCProtocol.h"
#include "Toolkit/IPCServerConnection.h"
#include "Toolkit/RuntimeDirectory.h"
#include "Toolkit/TickCount.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <exception>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <system_error>
#include <unistd.h>

namespace Toolkit {
namespace {

// While clients are pending, poll at least this often (in real time), so
// that their deadlines are checked against GetTickCount whatever drives it.
constexpr int c_pollSliceMs = 50;

bool makeAddress(const TString<char>& path, sockaddr_un& address)
{
    address = {};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, path.data(), path.size());
    return true;
}

} // namespace

IPCServer::IPCServer(const TString<wchar_t>& name) : m_name(name) {}

IPCServer::~IPCServer()
{
    Stop();
}

void IPCServer::AddConnectionHandler(smart_ptr<IPCConnectionEvent> handler)
{
    MutexLocker lock(m_lock);
    m_handlers.push_back(std::move(handler));
}

void IPCServer::RemoveConnectionHandler(const smart_ptr<IPCConnectionEvent>& handler)
{
    MutexLocker lock(m_lock);
    const auto it = std::find(m_handlers.begin(), m_handlers.end(), handler);
    if (it != m_handlers.end())
        m_handlers.erase(it);
}

bool IPCServer::Run()
{
    if (IsRunning())
        return true;
    m_path = RuntimeDirectory::PrepareFile(IPCProtocol::SocketFileName(m_name));
    if (m_path.empty())
        return false;
    sockaddr_un address;
    if (!makeAddress(m_path, address)) {
        TK_LOG(LogError) << "IPC socket path is too long: " << m_path;
        return false;
    }
    if (!replaceStaleSocket())
        return false;

    FileDescriptor listener(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!listener.IsValid() || ::bind(listener.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        TK_LOG(LogError) << "cannot create IPC socket " << m_path << ": " << std::strerror(errno);
        return false;
    }
    struct stat st {};
    if (::chmod(m_path.c_str(), 0600) != 0 || ::stat(m_path.c_str(), &st) != 0 ||
        ::listen(listener.Get(), SOMAXCONN) != 0) {
        TK_LOG(LogError) << "cannot listen on IPC socket " << m_path << ": " << std::strerror(errno);
        ::unlink(m_path.c_str());
        return false;
    }
    int wake[2];
    if (::pipe2(wake, O_CLOEXEC | O_NONBLOCK) != 0) {
        TK_LOG(LogError) << "cannot create the wake-up pipe of IPC socket " << m_path << ": " << std::strerror(errno);
        ::unlink(m_path.c_str());
        return false;
    }
    m_wakeRead.Reset(wake[0]);
    m_wakeWrite.Reset(wake[1]);
    m_listener = std::move(listener);
    m_socketDev = st.st_dev;
    m_socketIno = st.st_ino;
    try {
        m_thread = std::thread(&IPCServer::serve, this);
    } catch (const std::system_error& e) {
        TK_LOG(LogError) << "cannot start the thread of IPC socket " << m_path << ": " << e.what();
        closeListener();
        return false;
    }
    return true;
}

bool IPCServer::replaceStaleSocket()
{
    struct stat st {};
    if (::lstat(m_path.c_str(), &st) != 0)
        return true; // nothing there
    if (!S_ISSOCK(st.st_mode)) {
        TK_LOG(LogError) << "cannot create IPC socket " << m_path << ": a file that is not a socket is in the way";
        return false;
    }
    sockaddr_un address;
    makeAddress(m_path, address);
    FileDescriptor probe(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (probe.IsValid() && ::connect(probe.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address) == 0) {
        TK_LOG(LogError) << "IPC channel " << m_path << " is already served by another process";
        return false;
    }
    if (errno != ECONNREFUSED) {
        TK_LOG(LogError) << "cannot check IPC socket " << m_path << ": " << std::strerror(errno);
        return false;
    }
    // Nobody listens: the socket was left behind by a process that died.
    if (::unlink(m_path.c_str()) != 0) {
        TK_LOG(LogError) << "cannot remove stale IPC socket " << m_path << ": " << std::strerror(errno);
        return false;
    }
    TK_LOG(LogInfo) << "replaced stale IPC socket " << m_path;
    return true;
}

void IPCServer::Stop()
{
    if (!m_thread.joinable())
        return;
    if (m_thread.get_id() == std::this_thread::get_id()) {
        TK_LOG(LogError) << "IPC server " << m_path << " cannot be stopped from its own handler";
        return;
    }
    const char byte = 0;
    if (::write(m_wakeWrite.Get(), &byte, 1) != 1)
        TK_LOG(LogError) << "cannot wake the thread of IPC socket " << m_path << ": " << std::strerror(errno);
    m_thread.join();
    closeListener();
}

void IPCServer::closeListener()
{
    struct stat st {};
    // Another process may have replaced the file since; leave its socket be.
    if (::lstat(m_path.c_str(), &st) == 0 && st.st_dev == m_socketDev && st.st_ino == m_socketIno)
        ::unlink(m_path.c_str());
    m_listener.Reset();
    m_wakeRead.Reset();
    m_wakeWrite.Reset();
}

void IPCServer::serve()
{
    Clients clients;
    std::vector<pollfd> fds;
    for (;;) {
        fds.assign({{m_wakeRead.Get(), POLLIN, 0}, {m_listener.Get(), POLLIN, 0}});
        for (const auto& client : clients)
            fds.push_back({client->Fd(), POLLIN, 0});
        const int timeout = clients.empty() ? -1 : c_pollSliceMs;
        if (::poll(fds.data(), fds.size(), timeout) < 0) {
            if (errno == EINTR)
                continue;
            TK_LOG(LogError) << "IPC server " << m_path << " stopped: poll failed: " << std::strerror(errno);
            return;
        }
        if (fds[0].revents)
            return; // Stop()
        // Serve the clients polled above before accepting new ones, so the
        // indexes of fds and clients still match.
        for (size_t i = 0, polled = 2; i < clients.size(); ++polled) {
            if (fds[polled].revents && serviceClient(*clients[i]))
                clients.erase(clients.begin() + std::ptrdiff_t(i));
            else
                ++i;
        }
        expireClients(clients);
        if (fds[1].revents)
            acceptClients(clients);
    }
}

void IPCServer::acceptClients(Clients& clients)
{
    for (size_t accepted = 0; accepted < c_acceptBatch; ++accepted) {
        FileDescriptor socket(::accept4(m_listener.Get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (!socket.IsValid()) {
            if (errno == EINTR || errno == ECONNABORTED)
                continue;
            if (errno != EAGAIN && errno != EWOULDBLOCK)
                TK_LOG(LogError) << "IPC server " << m_path << " cannot accept a client: " << std::strerror(errno);
            return;
        }
        const IPCProtocol::Peer peer = IPCProtocol::GetPeer(socket.Get());
        if (!IPCProtocol::IsSameUser(peer)) {
            refuse(peer, "refused: not the same user");
            continue;
        }
        auto client = std::make_unique<IPCServerConnection>(std::move(socket), peer, GetTickCount() + c_readTimeoutMs);
        // A command that is already there is served at once, ahead of the
        // clients that still have to send theirs.
        if (!serviceClient(*client))
            admit(clients, std::move(client));
    }
}

void IPCServer::admit(Clients& clients, std::unique_ptr<IPCServerConnection> client)
{
    const auto samePeer = [&](const std::unique_ptr<IPCServerConnection>& other) {
        return other->Peer().pid == client->Peer().pid;
    };
    if (size_t(std::count_if(clients.begin(), clients.end(), samePeer)) >= c_maxClientsPerPeer) {
        refuse(client->Peer(), "refused: " + std::to_string(c_maxClientsPerPeer) +
                                   " connections of this process are already waiting");
        return;
    }
    if (clients.size() >= c_maxClients) {
        refuse(clients.front()->Peer(), "dropped unfinished to make room for a newer client");
        clients.erase(clients.begin());
    }
    clients.push_back(std::move(client));
}

bool IPCServer::serviceClient(IPCServerConnection& client)
{
    const auto state = client.ReadAvailable();
    if (state == IPCServerConnection::State::Reading)
        return false;
    if (state == IPCServerConnection::State::Failed) {
        refuse(client.Peer(), client.Error() + "; ignored");
        return true;
    }
    const std::string peer = IPCProtocol::Describe(client.Peer());
    const TString<wchar_t> command = client.Command();
    TK_LOG(LogInfo) << "IPC command from " << peer << " on " << m_path << ": " << command;
    // Our reference goes at the end of this call; handlers that finish later keep theirs.
    dispatch(command, make_smart<IPCAcknowledgement>(client.TakeSocket(), peer, m_path));
    return true;
}

void IPCServer::expireClients(Clients& clients)
{
    const uint64_t now = GetTickCount();
    std::erase_if(clients, [&](const std::unique_ptr<IPCServerConnection>& client) {
        if (now < client->Deadline())
            return false;
        refuse(client->Peer(), "no complete message within " + std::to_string(c_readTimeoutMs) + " ms; ignored");
        return true;
    });
}

void IPCServer::refuse(const IPCProtocol::Peer& peer, const std::string& what)
{
    size_t heldBack = 0;
    if (!m_refusals.Allow(heldBack))
        return;
    LogStream log(LogError, __FILE__, __LINE__, __func__);
    log << "IPC peer " << IPCProtocol::Describe(peer) << " on " << m_path << ": " << what;
    if (heldBack > 0)
        log << " (" << heldBack << " more refused or dropped clients not logged)";
}

void IPCServer::dispatch(const TString<wchar_t>& command, const smart_ptr<IPCAcknowledgement>& ack)
{
    std::vector<smart_ptr<IPCConnectionEvent>> handlers;
    {
        MutexLocker lock(m_lock);
        handlers = m_handlers;
    }
    for (const auto& handler : handlers) {
        try {
            handler->OnCommand(command, ack);
        } catch (const std::exception& e) {
            TK_LOG(LogError) << "IPC handler on " << m_path << " failed: " << e.what();
        } catch (...) {
            TK_LOG(LogError) << "IPC handler on " << m_path << " failed with an unknown exception";
        }
    }
}

} // namespace Toolkit

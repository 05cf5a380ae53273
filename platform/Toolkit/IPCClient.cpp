#include "Toolkit/IPCClient.h"

#include "Toolkit/FileDescriptor.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/IPCProtocol.h"
#include "Toolkit/RuntimeDirectory.h"
#include "Toolkit/UTF8.h"

#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

namespace Toolkit {
namespace {

bool setTimeouts(int fd, unsigned ms)
{
    timeval tv{};
    tv.tv_sec = ms / 1000;
    tv.tv_usec = (ms % 1000) * 1000;
    return ::setsockopt(fd, SOL_SOCKET, SO_SNDTIMEO, &tv, sizeof tv) == 0 &&
           ::setsockopt(fd, SOL_SOCKET, SO_RCVTIMEO, &tv, sizeof tv) == 0;
}

bool sendAll(int fd, const std::string& data)
{
    size_t sent = 0;
    while (sent < data.size()) {
        const ssize_t n = ::send(fd, data.data() + sent, data.size() - sent, MSG_NOSIGNAL);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        sent += size_t(n);
    }
    return true;
}

// Reads exactly `size` bytes; errno is 0 when the server closed early.
bool receiveAll(int fd, uint8_t* data, size_t size)
{
    size_t got = 0;
    while (got < size) {
        const ssize_t n = ::recv(fd, data + got, size - got, 0);
        if (n < 0 && errno == EINTR)
            continue;
        if (n == 0)
            errno = 0;
        if (n <= 0)
            return false;
        got += size_t(n);
    }
    return true;
}

const char* reason() { return errno ? std::strerror(errno) : "closed by the server"; }

} // namespace

bool IPCClient::Connect(const TString<wchar_t>& name, const TString<wchar_t>& command)
{
    const std::string payload = UTF8::ToUTF8(command);
    const TString<char> path = RuntimeDirectory::FilePath(IPCProtocol::SocketFileName(name));
    if (payload.size() > IPCProtocol::c_maxPayload) {
        TK_LOG(LogError) << "IPC command of " << payload.size() << " bytes for " << path << " is too long";
        return false;
    }
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        TK_LOG(LogError) << "IPC socket path is too long: " << path;
        return false;
    }
    std::memcpy(address.sun_path, path.data(), path.size());

    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!socket.IsValid() || !setTimeouts(socket.Get(), c_timeoutMs) ||
        ::connect(socket.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        TK_LOG(LogError) << "cannot reach IPC channel " << path << ": " << std::strerror(errno);
        return false;
    }
    const IPCProtocol::Peer server = IPCProtocol::GetPeer(socket.Get());
    if (!IPCProtocol::IsSameUser(server)) {
        TK_LOG(LogError) << "IPC channel " << path << " is served by " << IPCProtocol::Describe(server)
                         << ", not by this user; command not sent";
        return false;
    }
    if (!sendAll(socket.Get(), IPCProtocol::Encode(IPCProtocol::Command, payload))) {
        TK_LOG(LogError) << "cannot send IPC command to " << path << ": " << std::strerror(errno);
        return false;
    }
    uint8_t reply[IPCProtocol::c_headerSize];
    if (!receiveAll(socket.Get(), reply, sizeof reply)) {
        TK_LOG(LogError) << "no answer from IPC channel " << path << ": " << reason();
        return false;
    }
    IPCProtocol::Header header;
    std::string error;
    if (!IPCProtocol::DecodeHeader(reply, header, error) || header.kind != IPCProtocol::Ack) {
        TK_LOG(LogError) << "unexpected answer from IPC channel " << path << ": "
                         << (error.empty() ? std::string("not an acknowledgement") : error);
        return false;
    }
    return true;
}

} // namespace Toolkit

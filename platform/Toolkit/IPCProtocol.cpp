#include "Toolkit/IPCProtocol.h"

#include "Toolkit/RuntimeDirectory.h"

#include <cstring>
#include <sys/socket.h>
#include <unistd.h>

namespace Toolkit {
namespace {

constexpr char c_magic[4] = {'T', 'K', 'I', 'P'};

} // namespace

std::string IPCProtocol::Encode(Kind kind, std::string_view payload)
{
    const auto length = static_cast<uint32_t>(payload.size());
    std::string frame(c_magic, sizeof c_magic);
    frame += char(c_version);
    frame += char(kind);
    frame += '\0';
    frame += '\0';
    for (int shift = 24; shift >= 0; shift -= 8)
        frame += char((length >> shift) & 0xFF);
    frame += payload;
    return frame;
}

bool IPCProtocol::DecodeHeader(const uint8_t* bytes, Header& header, std::string& error)
{
    if (std::memcmp(bytes, c_magic, sizeof c_magic) != 0) {
        error = "not an IPC message (bad magic)";
        return false;
    }
    if (bytes[4] != c_version) {
        error = "unsupported protocol version " + std::to_string(bytes[4]);
        return false;
    }
    if (bytes[5] != Command && bytes[5] != Ack) {
        error = "unknown message kind " + std::to_string(bytes[5]);
        return false;
    }
    const uint32_t length = uint32_t(bytes[8]) << 24 | uint32_t(bytes[9]) << 16 | uint32_t(bytes[10]) << 8 | bytes[11];
    if (length > c_maxPayload) {
        error = "message of " + std::to_string(length) + " bytes is over the limit of " +
                std::to_string(c_maxPayload);
        return false;
    }
    header.kind = Kind(bytes[5]);
    header.length = length;
    return true;
}

TString<char> IPCProtocol::SocketFileName(const TString<wchar_t>& channel)
{
    return RuntimeDirectory::FileName(channel, ".ipc");
}

IPCProtocol::Peer IPCProtocol::GetPeer(int fd)
{
    Peer peer;
    struct ucred cred {};
    socklen_t size = sizeof cred;
    if (::getsockopt(fd, SOL_SOCKET, SO_PEERCRED, &cred, &size) == 0 && size == sizeof cred) {
        peer.pid = cred.pid;
        peer.uid = cred.uid;
        peer.known = true;
    }
    return peer;
}

std::string IPCProtocol::Describe(const Peer& peer)
{
    if (!peer.known)
        return "unknown peer";
    return "pid " + std::to_string(peer.pid) + " uid " + std::to_string(peer.uid);
}

bool IPCProtocol::IsSameUser(const Peer& peer)
{
    return peer.known && peer.uid == ::geteuid();
}

} // namespace Toolkit

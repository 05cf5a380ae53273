#include "Toolkit/IPCAcknowledgement.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/IPCProtocol.h"

#include <sys/socket.h>

namespace Toolkit {

IPCAcknowledgement::IPCAcknowledgement(FileDescriptor socket, std::string peer, TString<char> path)
    : m_socket(std::move(socket)), m_peer(std::move(peer)), m_path(std::move(path))
{
}

IPCAcknowledgement::~IPCAcknowledgement()
{
    const std::string ack = IPCProtocol::Encode(IPCProtocol::Ack, {});
    // The client sends one message and then only waits: the socket's send
    // buffer always has room for one header, so this never blocks.
    const ssize_t n = ::send(m_socket.Get(), ack.data(), ack.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (n != ssize_t(ack.size()))
        TK_LOG(LogError) << "IPC peer " << m_peer << " on " << m_path << " left before its command was acknowledged";
}

} // namespace Toolkit

#include "Toolkit/IPCServerConnection.h"

#include "Toolkit/UTF8.h"

#include <cerrno>
#include <cstring>
#include <sys/socket.h>

namespace Toolkit {

IPCServerConnection::IPCServerConnection(FileDescriptor socket, IPCProtocol::Peer peer, uint64_t deadline)
    : m_socket(std::move(socket)), m_peer(peer), m_deadline(deadline)
{
}

IPCServerConnection::State IPCServerConnection::fail(std::string error)
{
    m_error = std::move(error);
    return State::Failed;
}

IPCServerConnection::State IPCServerConnection::ReadAvailable()
{
    char chunk[4096];
    for (;;) {
        const ssize_t n = ::recv(m_socket.Get(), chunk, sizeof chunk, 0);
        if (n > 0) {
            m_buffer.append(chunk, size_t(n));
            const State state = consume();
            if (state != State::Reading)
                return state;
            continue;
        }
        if (n == 0)
            return fail("connection closed after " + std::to_string(m_buffer.size()) +
                        " bytes, before a complete message");
        if (errno == EINTR)
            continue;
        if (errno == EAGAIN || errno == EWOULDBLOCK)
            return State::Reading;
        return fail(std::string("read failed: ") + std::strerror(errno));
    }
}

IPCServerConnection::State IPCServerConnection::consume()
{
    if (!m_haveHeader) {
        if (m_buffer.size() < IPCProtocol::c_headerSize)
            return State::Reading;
        std::string error;
        if (!IPCProtocol::DecodeHeader(reinterpret_cast<const uint8_t*>(m_buffer.data()), m_header, error))
            return fail(error);
        if (m_header.kind != IPCProtocol::Command)
            return fail("message is not a command");
        m_haveHeader = true;
    }
    if (m_buffer.size() < IPCProtocol::c_headerSize + m_header.length)
        return State::Reading;
    return State::Complete;
}

TString<wchar_t> IPCServerConnection::Command() const
{
    return UTF8::ToUNICODE(std::string_view(m_buffer).substr(IPCProtocol::c_headerSize, m_header.length));
}

} // namespace Toolkit

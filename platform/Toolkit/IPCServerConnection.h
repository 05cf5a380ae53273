#pragma once
// One accepted client of an IPCServer: collects the bytes of its single
// command message as they arrive, without ever blocking the server.
#include "Toolkit/FileDescriptor.h"
#include "Toolkit/IPCProtocol.h"
#include "Toolkit/TString.h"

#include <cstdint>
#include <string>

namespace Toolkit {

class IPCServerConnection {
public:
    enum class State { Reading, Complete, Failed };

    // Takes the accepted non-blocking socket; the message must be complete
    // by `deadline` (a GetTickCount value).
    IPCServerConnection(FileDescriptor socket, IPCProtocol::Peer peer, uint64_t deadline);

    int Fd() const { return m_socket.Get(); }
    uint64_t Deadline() const { return m_deadline; }
    const IPCProtocol::Peer& Peer() const { return m_peer; }

    // Reads what has arrived. Failed means the message is malformed or
    // truncated; the reason is in Error().
    State ReadAvailable();
    const std::string& Error() const { return m_error; }
    // The command, once Complete.
    TString<wchar_t> Command() const;
    // Hands the socket over (to the acknowledgement), once Complete.
    FileDescriptor TakeSocket() { return std::move(m_socket); }

private:
    State fail(std::string error);
    State consume();

    FileDescriptor m_socket;
    IPCProtocol::Peer m_peer;
    uint64_t m_deadline;
    std::string m_buffer;
    IPCProtocol::Header m_header;
    bool m_haveHeader = false;
    std::string m_error;
};

} // namespace Toolkit

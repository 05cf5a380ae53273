#pragma once
// The wire format of the IPC channel, shared by IPCServer and IPCClient.
//
// Every message is a 12-byte header followed by a UTF-8 payload:
//   bytes 0-3  magic "TKIP"
//   byte  4    protocol version (1)
//   byte  5    kind: 1 command (client to server), 2 acknowledgement
//   bytes 6-7  reserved, zero
//   bytes 8-11 payload length, big-endian, at most c_maxPayload
// A client sends one command per connection; the server answers with an
// acknowledgement (no payload) once its handlers are done with the command.
#include "Toolkit/TString.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace Toolkit {

class IPCProtocol {
public:
    static constexpr size_t c_headerSize = 12;
    static constexpr uint32_t c_maxPayload = 64 * 1024;
    static constexpr uint8_t c_version = 1;
    enum Kind : uint8_t { Command = 1, Ack = 2 };

    struct Header {
        Kind kind = Command;
        uint32_t length = 0;
    };

    // Identity of the process at the other end of a connected socket.
    struct Peer {
        pid_t pid = 0;
        uid_t uid = 0;
        bool known = false;
    };

    static std::string Encode(Kind kind, std::string_view payload);
    // Reads c_headerSize bytes. False, with the reason in `error`, when they
    // are not a header of this protocol or announce too long a payload.
    static bool DecodeHeader(const uint8_t* bytes, Header& header, std::string& error);

    // The socket file of a channel (empty name: the application's channel).
    static TString<char> SocketFileName(const TString<wchar_t>& channel);

    static Peer GetPeer(int fd);
    // "pid 123 uid 1000", for log entries.
    static std::string Describe(const Peer& peer);
    static bool IsSameUser(const Peer& peer);
};

} // namespace Toolkit

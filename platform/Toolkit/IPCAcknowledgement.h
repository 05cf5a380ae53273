#pragma once
// The pending answer to one IPC command. The server hands it, shared, to
// every handler of the command; the acknowledgement goes to the client when
// the last reference is dropped, that is once every handler is done with
// the command, on whatever thread that happens. A handler that finishes the
// work elsewhere (the GUI thread) keeps a reference until it has.
#include "Toolkit/FileDescriptor.h"
#include "Toolkit/TString.h"

#include <string>

namespace Toolkit {

class IPCAcknowledgement {
public:
    // Takes the client's connected socket; `peer` and `path` name the
    // client and the channel in the log entry written if the client left.
    IPCAcknowledgement(FileDescriptor socket, std::string peer, TString<char> path);
    ~IPCAcknowledgement();
    IPCAcknowledgement(const IPCAcknowledgement&) = delete;
    IPCAcknowledgement& operator=(const IPCAcknowledgement&) = delete;

private:
    FileDescriptor m_socket;
    std::string m_peer;
    TString<char> m_path;
};

} // namespace Toolkit

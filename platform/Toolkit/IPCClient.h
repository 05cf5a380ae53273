#pragma once
// The sending end of a named IPC channel (see IPCServer).
#include "Toolkit/TString.h"

namespace Toolkit {

class IPCClient {
public:
    // Waits at most this long (real time) to connect, send and be answered.
    static constexpr unsigned c_timeoutMs = 2000;

    // Sends one command to the process serving the channel (the empty name
    // is the application's default channel). True when that process has
    // accepted it; false, with a log entry, when nobody serves the channel,
    // it belongs to another user, or it did not answer.
    static bool Connect(const TString<wchar_t>& name, const TString<wchar_t>& command);
};

} // namespace Toolkit

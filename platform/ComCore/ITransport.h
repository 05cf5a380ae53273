#pragma once
// A byte channel to a device (a serial port, a socket of the modem
// service). Stream logging, the copy of every byte exchanged into the log,
// is one switch for the whole process: a developer's diagnostic, off by
// default, and never on for a channel that is carrying a SIM code.
#include "Toolkit/EventObject.h"

#include <cstddef>

namespace ComCore {

class ITransport {
public:
    virtual ~ITransport() = default;

    // Bytes written or read, -1 when the channel is closed or failed.
    virtual long Write(const void* data, size_t size) = 0;
    virtual long Read(void* data, size_t size, unsigned timeoutMs) = 0;

    // Signalled while stream logging is on (manual reset).
    static Toolkit::EventObject s_evtEnableLogs;
    static void EnableStreamLogs(bool enable);
    static bool IsStreamLogsEnabled() { return s_evtEnableLogs.Wait(0); }
};

} // namespace ComCore

#pragma once
// Receives the commands that other processes send over an IPCServer's
// channel. OnExecute is called on the server's own thread, never on the GUI
// thread: a handler that touches windows must hand the work over to it.
#include "Toolkit/TString.h"

namespace Toolkit {

class IPCConnectionEvent {
public:
    virtual ~IPCConnectionEvent() = default;
    virtual void OnExecute(TString<wchar_t> command) = 0;
};

} // namespace Toolkit

#pragma once
// Receives the commands that other processes send over an IPCServer's
// channel. They arrive on the server's own thread, never on the GUI thread:
// a handler that touches windows must hand the work over to it.
//
// The sender is answered once every handler is done with the command. By
// default a handler is done when OnExecute returns; one that finishes the
// work on another thread overrides OnCommand and keeps `ack` until then.
#include "Toolkit/IPCAcknowledgement.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

namespace Toolkit {

class IPCConnectionEvent {
public:
    virtual ~IPCConnectionEvent() = default;
    virtual void OnExecute(TString<wchar_t> command) = 0;
    // What the server calls.
    virtual void OnCommand(TString<wchar_t> command, smart_ptr<IPCAcknowledgement> ack)
    {
        (void)ack;
        OnExecute(std::move(command));
    }
};

} // namespace Toolkit

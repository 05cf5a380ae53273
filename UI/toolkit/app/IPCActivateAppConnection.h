#pragma once
#include "module/Export.h"
// Handles commands that a second start of the application sends to the
// running one: "IPC_ACTIVATE" brings the main window to the front.
#include "Toolkit/IPCConnectionEvent.h"

namespace UIKit {

class UIKIT_API IPCActivateAppConnection : public Toolkit::IPCConnectionEvent {
public:
    static const TString<wchar_t> c_strActivateAppCmd;

    // Called on the IPC server's thread; the raise itself is handed to the
    // GUI thread, and the second start is answered once it has happened.
    void OnCommand(TString<wchar_t> command, Toolkit::smart_ptr<Toolkit::IPCAcknowledgement> ack) override;
    void OnExecute(TString<wchar_t> command) override;
};

} // namespace UIKit

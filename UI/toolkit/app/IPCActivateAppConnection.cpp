#include "app/IPCActivateAppConnection.h"

#include "app/App.h"

#include <wx/toplevel.h>

namespace UIKit {

const TString<wchar_t> IPCActivateAppConnection::c_strActivateAppCmd = L"IPC_ACTIVATE";

namespace {

void raiseTopWindow()
{
    if (!App::m_wxApp)
        return;
    wxWindow* top = App::m_wxApp->GetTopWindow();
    if (!top)
        return;
    if (auto* frame = dynamic_cast<wxTopLevelWindow*>(top))
        if (frame->IsIconized())
            frame->Iconize(false);
    top->Raise();
}

} // namespace

void IPCActivateAppConnection::OnCommand(TString<wchar_t> command,
                                         Toolkit::smart_ptr<Toolkit::IPCAcknowledgement> ack)
{
    if (command != c_strActivateAppCmd || !App::m_wxApp)
        return;
    // The acknowledgement goes out when the GUI thread lets go of it, after
    // the window came forward.
    App::m_wxApp->CallAfter([ack] { raiseTopWindow(); });
}

void IPCActivateAppConnection::OnExecute(TString<wchar_t> command)
{
    if (command != c_strActivateAppCmd || !App::m_wxApp)
        return;
    // Windows belong to the GUI thread; the server calls from its own.
    App::m_wxApp->CallAfter([] { raiseTopWindow(); });
}

} // namespace UIKit

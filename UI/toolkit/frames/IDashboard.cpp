#include "frames/IDashboard.h"

#include "Toolkit/Thread.h"

#include <wx/app.h>

namespace UIKit {
namespace {

TString<wchar_t> applicationName()
{
    return wxTheApp ? TString<wchar_t>(wxTheApp->GetAppName().ToStdWstring()) : TString<wchar_t>();
}

} // namespace

IDashboard* IDashboard::s_pCurrent = nullptr;

IDashboard::IDashboard(const wxRect& bounds)
    : FrameCtrl(nullptr, applicationName(), -1, bounds,
                wxCAPTION | wxSIMPLE_BORDER | wxCLIP_CHILDREN | wxCLOSE_BOX | wxSYSTEM_MENU | wxMINIMIZE_BOX |
                    wxFRAME_SHAPED),
      m_closingEvent(Toolkit::make_smart<Toolkit::EventObject>(false, false)),
      m_waitingEvent(Toolkit::make_smart<Toolkit::EventObject>(false, false))
{
}

bool IDashboard::IsClosing()
{
    return m_closingEvent->Wait(0);
}

bool IDashboard::WaitAndDispatch()
{
    // Both events reset themselves when a wait sees them: a closing signal
    // that ends the loop is the answer, as asking again would no longer see it.
    bool closing = false;
    while (m_waitingEvent->Wait(20) && !(closing = IsClosing())) {
        if (!Toolkit::Thread::IsMainThread() || !wxTheApp)
            continue;
        while (wxTheApp->Pending())
            wxTheApp->Dispatch();
    }
    return closing || IsClosing();
}

} // namespace UIKit

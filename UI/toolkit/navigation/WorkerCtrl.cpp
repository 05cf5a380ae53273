#include "navigation/WorkerCtrl.h"

namespace UIKit {

const wxEventType WorkerCtrl::EVT_WORKER_THREAD_STARTED = wxNewEventType();
const wxEventType WorkerCtrl::EVT_WORKER_THREAD_FINISHED = wxNewEventType();

WorkerCtrl::~WorkerCtrl()
{
    Stop();
}

void WorkerCtrl::RequestDoWork()
{
    if (stopping())
        return;
    m_busy.Set();
    if (!IsRunning() && !Start()) {
        m_busy.Reset();
        return;
    }
    m_request.Set();
}

void WorkerCtrl::Stop()
{
    m_stop.Set();
    m_request.Set();
    Join();
}

bool WorkerCtrl::IsBusy()
{
    return m_busy.Wait(0);
}

bool WorkerCtrl::stopping()
{
    return m_stop.Wait(0);
}

void WorkerCtrl::DoWork()
{
    // Taken once the object is complete: the thread starts only on request.
    wxEvtHandler* target = dynamic_cast<wxEvtHandler*>(this);
    const wxCommandEvent started(EVT_WORKER_THREAD_STARTED, -1);
    const wxCommandEvent finished(EVT_WORKER_THREAD_FINISHED, -1);
    while (m_request.Wait() && !stopping()) {
        m_busy.Set();
        post(target, started);
        OnDoWork();
        post(target, finished);
        m_busy.Reset();
    }
    m_busy.Reset();
}

void WorkerCtrl::post(wxEvtHandler* target, const wxCommandEvent& event)
{
    if (target && !stopping())
        target->AddPendingEvent(event);
}

} // namespace UIKit

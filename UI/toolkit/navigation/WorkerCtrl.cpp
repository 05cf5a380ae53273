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
    if (IsStopping())
        return;
    std::lock_guard<std::mutex> lock(m_requestLock);
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

bool WorkerCtrl::IsStopping()
{
    return m_stop.Wait(0);
}

void WorkerCtrl::DoWork()
{
    // Taken once the object is complete: the thread starts only on request.
    wxEvtHandler* target = dynamic_cast<wxEvtHandler*>(this);
    const wxThreadEvent started(EVT_WORKER_THREAD_STARTED, -1);
    const wxThreadEvent finished(EVT_WORKER_THREAD_FINISHED, -1);
    bool requested = m_request.Wait();
    while (requested && !IsStopping()) {
        m_busy.Set();
        post(target, started);
        OnDoWork();
        post(target, finished);
        requested = nextRequest();
    }
    m_busy.Reset();
}

bool WorkerCtrl::nextRequest()
{
    {
        // Under the lock requests are made with, so that busy is never
        // clear while a request waits.
        std::lock_guard<std::mutex> lock(m_requestLock);
        if (m_request.Wait(0))
            return true;
        m_busy.Reset();
    }
    return m_request.Wait();
}

void WorkerCtrl::post(wxEvtHandler* target, const wxThreadEvent& event)
{
    if (target && !IsStopping())
        target->AddPendingEvent(event);
}

} // namespace UIKit

#pragma once
#include "module/Export.h"
// The background half of a screen: a thread that waits for requests and
// runs OnDoWork() once per request while the user interface stays live. It
// never touches a window: when the object is also an event handler, each
// job's start and end are posted to it as events, which its owner handles
// on the GUI thread. They are thread events (copied deeply, and part of the
// base library, so the worker needs no GUI).
//
// OnDoWork() runs on the worker thread. A subclass whose job reads its own
// members calls Stop() in its own destructor, before those members go.
#include "Toolkit/EventObject.h"
#include "Toolkit/Thread.h"

#include <wx/event.h>

#include <mutex>

namespace UIKit {

class UIKIT_API WorkerCtrl : public Toolkit::Thread {
public:
    static const wxEventType EVT_WORKER_THREAD_STARTED;
    static const wxEventType EVT_WORKER_THREAD_FINISHED;

    WorkerCtrl() = default;
    // Stops the thread if the owner has not done so already.
    ~WorkerCtrl() override;

    // Starts the thread when it is not running, then asks for one job. A
    // request made while another is still waiting counts as one.
    void RequestDoWork();
    // Ends the thread and waits for it: a running job is finished first.
    // The worker takes no further requests afterwards.
    void Stop();
    // True from a request until its job has ended, so that a second request
    // made before the first job starts is seen as well.
    bool IsBusy();
    // True once Stop() has begun; a long job checks it to end early.
    bool IsStopping();

protected:
    // The thread body: one job per request until stopped.
    virtual void DoWork();
    // The job; nothing by default.
    virtual void OnDoWork() {}

private:
    void Run() override { DoWork(); }
    // The next request: at once when one came during the job, otherwise
    // waited for with busy cleared.
    bool nextRequest();
    // Queues a copy of the event unless the worker is being stopped, whose
    // owner may be going away.
    void post(wxEvtHandler* target, const wxThreadEvent& event);

    Toolkit::EventObject m_stop{true, false};
    Toolkit::EventObject m_request{false, false};
    Toolkit::EventObject m_busy{true, false};
    // Makes "set busy, then request" one step against the worker's "no
    // request pending, so clear busy".
    std::mutex m_requestLock;
};

} // namespace UIKit

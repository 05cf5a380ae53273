#pragma once
#include "module/Export.h"
// The background half of a screen: a thread that waits for requests and
// runs OnDoWork() once per request while the user interface stays live. It
// never touches a window: when the object is also an event handler, each
// job's start and end are posted to it as events, which its owner handles
// on the GUI thread.
//
// OnDoWork() runs on the worker thread. A subclass whose job reads its own
// members calls Stop() in its own destructor, before those members go.
#include "Toolkit/EventObject.h"
#include "Toolkit/Thread.h"

#include <wx/event.h>

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

protected:
    // The thread body: one job per request until stopped.
    virtual void DoWork();
    // The job; nothing by default.
    virtual void OnDoWork() {}

private:
    void Run() override { DoWork(); }
    bool stopping();
    // Queues a copy of the event unless the worker is being stopped, whose
    // owner may be going away.
    void post(wxEvtHandler* target, const wxCommandEvent& event);

    Toolkit::EventObject m_stop{true, false};
    Toolkit::EventObject m_request{false, false};
    Toolkit::EventObject m_busy{true, false};
};

} // namespace UIKit

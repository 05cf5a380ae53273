// The screens' worker thread under load, also run under the thread
// sanitizer: jobs requested repeatedly, and the owner destroyed while a job
// may still run and its events wait in the queue.
#include "navigation/WorkerCtrl.h"

#include <gtest/gtest.h>

#include <wx/app.h>

#include <atomic>
#include <thread>

namespace workertest {

std::atomic<int> g_delivered{0};

// Posts to itself as a screen does; each job waits at the gate. The gate
// and the signal that destruction has begun belong to the test.
class Worker : public wxEvtHandler, public UIKit::WorkerCtrl {
public:
    Worker(Toolkit::EventObject& gate, Toolkit::EventObject& leaving) : m_gate(gate), m_leaving(leaving)
    {
        for (wxEventType type : {EVT_WORKER_THREAD_STARTED, EVT_WORKER_THREAD_FINISHED})
            Bind(wxEventTypeTag<wxThreadEvent>(type), [](wxThreadEvent&) { ++g_delivered; });
    }
    ~Worker() override
    {
        m_leaving.Set();
        Stop();
    }
    void OnDoWork() override { m_gate.Wait(); }

private:
    Toolkit::EventObject& m_gate;
    Toolkit::EventObject& m_leaving;
};

// Every other round the job is held at the gate until destruction has
// begun, so destruction stops a busy worker.
TEST(WorkerCtrl, OwnerDestroyedWhileBusyReceivesNothing)
{
    for (int round = 0; round < 40; ++round) {
        Toolkit::EventObject gate(true, round % 2 == 1), leaving(true, false);
        auto* worker = new Worker(gate, leaving);
        for (int i = 0; i < 5; ++i) {
            worker->RequestDoWork();
            // A held job cannot end: busy from the request on, before the thread takes it.
            EXPECT_TRUE(round % 2 || worker->IsBusy());
        }
        std::thread opener([&gate, &leaving] {
            leaving.Wait();
            gate.Set();
        });
        g_delivered = 0;
        delete worker;
        opener.join();
        wxTheApp->ProcessPendingEvents();
        EXPECT_EQ(g_delivered, 0);
    }
}

} // namespace workertest

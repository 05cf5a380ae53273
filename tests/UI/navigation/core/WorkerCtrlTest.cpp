// The worker thread of screens: one job per request, requests made during a
// job folded into one, stopping while a job runs, and an owner destroyed
// with the worker's events still queued to it.
#include "navigation/WorkerCtrl.h"

#include <gtest/gtest.h>

#include <wx/app.h>

#include <atomic>
#include <thread>

namespace workertest {

using UIKit::WorkerCtrl;

// Every event any worker's handler receives; one reaching a destroyed
// worker would show here.
std::atomic<int> g_delivered{0};

// Posts to itself as a screen does; each job may be held at a gate until
// the test opens it.
class Worker : public wxEvtHandler, public WorkerCtrl {
public:
    explicit Worker(bool gated) : m_gated(gated)
    {
        Bind(wxEventTypeTag<wxThreadEvent>(EVT_WORKER_THREAD_STARTED), [this](wxThreadEvent&) { count(started); });
        Bind(wxEventTypeTag<wxThreadEvent>(EVT_WORKER_THREAD_FINISHED), [this](wxThreadEvent&) { count(finished); });
    }
    ~Worker() override { Stop(); }

    void OnDoWork() override
    {
        ++jobs;
        entered.Set();
        if (m_gated)
            gate.Wait();
    }

    // Runs the GUI side once the worker is idle again.
    void Settle()
    {
        while (IsBusy())
            std::this_thread::yield();
        wxTheApp->ProcessPendingEvents();
    }

    std::atomic<int> jobs{0};
    int started = 0;
    int finished = 0;
    Toolkit::EventObject entered{false, false};
    Toolkit::EventObject gate{true, false};

private:
    static void count(int& counter)
    {
        ++counter;
        ++g_delivered;
    }
    const bool m_gated;
};

TEST(WorkerCtrl, RequestsDuringAJobFoldIntoOneMoreJob)
{
    struct Case {
        int requestsDuringJob;
        int jobs;
    };
    const Case cases[] = {{0, 1}, {1, 2}, {4, 2}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.requestsDuringJob);
        Worker worker(true);
        worker.RequestDoWork();
        EXPECT_TRUE(worker.IsBusy()) << "busy from the request on, before the thread picks it up";
        worker.entered.Wait();
        for (int i = 0; i < c.requestsDuringJob; ++i)
            worker.RequestDoWork();
        worker.gate.Set();
        worker.Settle();
        EXPECT_EQ(worker.jobs, c.jobs);
        EXPECT_EQ(worker.started, c.jobs);
        EXPECT_EQ(worker.finished, c.jobs);
    }
}

TEST(WorkerCtrl, RepeatedJobsThenStopWhileBusy)
{
    Worker worker(false);
    for (int round = 1; round <= 50; ++round) {
        worker.RequestDoWork();
        worker.Settle();
        ASSERT_EQ(worker.finished, round);
    }

    // Stop waits for the running job; its end is no longer reported, and
    // the stopped worker takes no new job.
    Worker held(true);
    held.RequestDoWork();
    held.entered.Wait();
    std::thread opener([&held] {
        while (!held.IsStopping())
            std::this_thread::yield();
        held.gate.Set();
    });
    held.Stop();
    opener.join();
    EXPECT_FALSE(held.IsRunning());
    held.RequestDoWork();
    held.Settle();
    EXPECT_EQ(held.jobs, 1);
    EXPECT_EQ(held.started, 1);
    EXPECT_EQ(held.finished, 0);
}

TEST(WorkerCtrl, OwnerDestroyedWithEventsQueuedReceivesNothing)
{
    for (int round = 0; round < 20; ++round) {
        g_delivered = 0;
        {
            auto* worker = new Worker(round % 2 == 1);
            for (int i = 0; i < 5; ++i)
                worker->RequestDoWork();
            std::thread opener([worker] {
                worker->entered.Wait();
                worker->gate.Set();
            });
            opener.join();
            // Destroyed while its job may still run and its events wait.
            delete worker;
        }
        wxTheApp->ProcessPendingEvents();
        EXPECT_EQ(g_delivered, 0);
    }
}

} // namespace workertest

#include "Toolkit/EventObject.h"
#include "Toolkit/Thread.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>

namespace {

// A body that reports where it ran, waits for the test's go-ahead, and
// then counts its run or throws.
class GatedThread : public Toolkit::Thread {
public:
    GatedThread(Toolkit::EventObject& started, Toolkit::EventObject& go) : m_started(started), m_go(go) {}
    ~GatedThread() override { Join(); }
    std::atomic<int> runs{0};
    std::atomic<bool> ranOnMain{true};
    std::atomic<bool> throwNext{false};

protected:
    void Run() override
    {
        ranOnMain = IsMainThread();
        m_started.Set();
        m_go.Wait();
        if (throwNext)
            throw std::runtime_error("worker lost its device");
        ++runs;
    }

private:
    Toolkit::EventObject& m_started;
    Toolkit::EventObject& m_go;
};

TEST(ThreadTest, StartJoinAndRestart)
{
    testsupport::LogCapture log;
    Toolkit::EventObject started(false, false), go(false, false);
    GatedThread thread(started, go);
    EXPECT_TRUE(Toolkit::Thread::IsMainThread());
    EXPECT_FALSE(thread.Join()) << "nothing to join before the first start";

    ASSERT_TRUE(thread.Start());
    ASSERT_TRUE(started.Wait(10000));
    EXPECT_TRUE(thread.IsRunning());
    EXPECT_FALSE(thread.Start()) << "a running body is not started twice";
    EXPECT_TRUE(log.Contains(L"thread already running"));
    go.Set();
    EXPECT_TRUE(thread.Join());
    EXPECT_EQ(thread.runs, 1);
    EXPECT_FALSE(thread.ranOnMain);

    // A finished thread runs again; the old run is collected by Start.
    go.Set();
    ASSERT_TRUE(thread.Start());
    EXPECT_TRUE(thread.Join());
    EXPECT_EQ(thread.runs, 2);

    // An exception that escapes the body is logged and ends only the body.
    thread.throwNext = true;
    go.Set();
    ASSERT_TRUE(thread.Start());
    EXPECT_TRUE(thread.Join());
    EXPECT_EQ(thread.runs, 2);
    EXPECT_EQ(log.Count(L"thread body ended by exception: worker lost its device"), 1u) << log.Dump();
}

// A body that only uses what it copied before announcing its start, so the
// object may be destroyed while it still runs.
class DetachedStateThread : public Toolkit::Thread {
public:
    DetachedStateThread(Toolkit::EventObject& started, Toolkit::EventObject& go, std::atomic<bool>& done)
        : m_started(started), m_go(go), m_done(done)
    {
    }

protected:
    void Run() override
    {
        auto& go = m_go;
        auto& done = m_done;
        m_started.Set();
        go.Wait();
        done = true;
    }

private:
    Toolkit::EventObject& m_started;
    Toolkit::EventObject& m_go;
    std::atomic<bool>& m_done;
};

TEST(ThreadTest, DestructorWaitsForTheBody)
{
    Toolkit::EventObject started(false, false), go(false, false);
    std::atomic<bool> done{false};
    {
        DetachedStateThread thread(started, go, done);
        ASSERT_TRUE(thread.Start());
        ASSERT_TRUE(started.Wait(10000));
        go.Set();
    }
    EXPECT_TRUE(done) << "the destructor returned before the body ended";
}

} // namespace

#include "Toolkit/EventObject.h"
#include "Toolkit/Thread.h"
#include "Toolkit/ThreadPool.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <stdexcept>

namespace {

using Toolkit::BackgroundOperation;
using Toolkit::ThreadPool;
using Toolkit::make_smart;

class CountingOperation : public BackgroundOperation {
public:
    CountingOperation(std::atomic<int>& counter, std::atomic<int>& onMain) : m_counter(counter), m_onMain(onMain) {}
    void DoOperation() override
    {
        ++m_counter;
        m_onMain += Toolkit::Thread::IsMainThread();
    }

private:
    std::atomic<int>& m_counter;
    std::atomic<int>& m_onMain;
};

class ThrowingOperation : public BackgroundOperation {
public:
    explicit ThrowingOperation(bool standard) : m_standard(standard) {}
    void DoOperation() override
    {
        if (m_standard)
            throw std::runtime_error("no browser found");
        throw 7;
    }

private:
    bool m_standard;
};

TEST(ThreadPoolTest, RunsEveryOperationOnceAndSurvivesThrowingOnes)
{
    testsupport::LogCapture log;
    constexpr int count = 300;
    std::array<std::atomic<int>, count> runs{};
    std::atomic<int> onMain{0};
    ThreadPool pool(3);
    for (int i = 0; i < count; ++i) {
        ASSERT_TRUE(pool.AddOperation(make_smart<CountingOperation>(runs[i], onMain)));
        if (i % 50 == 0) {
            ASSERT_TRUE(pool.AddOperation(make_smart<ThrowingOperation>(i % 100 == 0)));
        }
    }
    ASSERT_TRUE(pool.WaitUntilIdle(10000));
    for (int i = 0; i < count; ++i)
        EXPECT_EQ(runs[i], 1) << "operation " << i;
    EXPECT_EQ(onMain, 0);
    EXPECT_EQ(log.Count(L"ThrowingOperation failed: no browser found"), 3u) << log.Dump();
    EXPECT_EQ(log.Count(L"failed with an unknown exception"), 3u);
}

// Blocks a worker until the test lets it go.
class GateOperation : public BackgroundOperation {
public:
    GateOperation(Toolkit::EventObject& entered, Toolkit::EventObject& go) : m_entered(entered), m_go(go) {}
    void DoOperation() override
    {
        m_entered.Set();
        m_go.Wait();
    }

private:
    Toolkit::EventObject& m_entered;
    Toolkit::EventObject& m_go;
};

class ShutdownFromInside : public BackgroundOperation {
public:
    explicit ShutdownFromInside(ThreadPool& pool) : m_pool(pool) {}
    void DoOperation() override { m_pool.Shutdown(); }

private:
    ThreadPool& m_pool;
};

TEST(ThreadPoolTest, IdleWaitShutdownAndRestart)
{
    testsupport::LogCapture log;
    ThreadPool pool(1);
    EXPECT_TRUE(pool.WaitUntilIdle(0)) << "a pool without work is idle";
    EXPECT_FALSE(pool.AddOperation(Toolkit::smart_ptr<BackgroundOperation>()));
    EXPECT_TRUE(log.Contains(L"null background operation not queued"));

    // A running operation keeps the pool busy.
    Toolkit::EventObject entered(true, false), go(true, false);
    std::atomic<int> runs{0}, onMain{0};
    ASSERT_TRUE(pool.AddOperation(make_smart<GateOperation>(entered, go)));
    ASSERT_TRUE(pool.AddOperation(make_smart<CountingOperation>(runs, onMain)));
    ASSERT_TRUE(entered.Wait(10000));
    EXPECT_FALSE(pool.WaitUntilIdle(1));
    go.Set();

    // Shutdown runs what is queued before the workers end.
    pool.Shutdown();
    EXPECT_EQ(runs, 1);
    EXPECT_TRUE(pool.WaitUntilIdle(0));

    // The pool starts again with the next operation; it refuses to be shut
    // down from one of its own operations.
    ASSERT_TRUE(pool.AddOperation(make_smart<ShutdownFromInside>(pool)));
    ASSERT_TRUE(pool.AddOperation(make_smart<CountingOperation>(runs, onMain)));
    ASSERT_TRUE(pool.WaitUntilIdle(10000));
    EXPECT_EQ(runs, 2);
    EXPECT_TRUE(log.Contains(L"thread pool shutdown refused from one of its own operations"));
}

} // namespace

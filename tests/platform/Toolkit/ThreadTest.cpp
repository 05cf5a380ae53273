// Threads, the pool of background operations, and the event objects they
// hand over with. Also run under ThreadSanitizer.
#include "Toolkit/EventObject.h"
#include "Toolkit/Thread.h"
#include "Toolkit/ThreadPool.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <semaphore>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using Toolkit::EventObject;
using Toolkit::ThreadPool;

// A thread whose body is the function given; the body copies it first, so
// the object may be destroyed while the body still runs.
class FunctionThread : public Toolkit::Thread {
public:
    explicit FunctionThread(std::function<void()> body) : m_body(std::move(body)) {}

protected:
    void Run() override
    {
        const auto body = m_body;
        body();
    }

private:
    std::function<void()> m_body;
};

class FunctionOperation : public Toolkit::BackgroundOperation {
public:
    explicit FunctionOperation(std::function<void()> body) : m_body(std::move(body)) {}
    void DoOperation() override { m_body(); }

private:
    std::function<void()> m_body;
};

Toolkit::smart_ptr<Toolkit::BackgroundOperation> operation(std::function<void()> body)
{
    return Toolkit::make_smart<FunctionOperation>(std::move(body));
}

TEST(ThreadTest, StartJoinAndRestart)
{
    testsupport::LogCapture log;
    EventObject started(false, false), go(false, false);
    std::atomic<int> runs{0};
    std::atomic<bool> ranOnMain{true}, throwNext{false};
    FunctionThread thread([&] {
        ranOnMain = Toolkit::Thread::IsMainThread();
        started.Set();
        go.Wait();
        if (throwNext)
            throw std::runtime_error("worker lost its device");
        ++runs;
    });
    EXPECT_TRUE(Toolkit::Thread::IsMainThread());
    EXPECT_FALSE(thread.Join()) << "nothing to join before the first start";

    ASSERT_TRUE(thread.Start());
    ASSERT_TRUE(started.Wait(10000));
    EXPECT_FALSE(thread.Start()) << "a running body is not started twice";
    EXPECT_TRUE(log.Contains(L"thread already running"));
    go.Set();
    EXPECT_TRUE(thread.Join());
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(ranOnMain);

    // A finished thread runs again; the old run is collected by Start.
    go.Set();
    ASSERT_TRUE(thread.Start());
    EXPECT_TRUE(thread.Join());
    EXPECT_EQ(runs, 2);

    // An exception that escapes the body is logged and ends only the body.
    throwNext = true;
    go.Set();
    ASSERT_TRUE(thread.Start());
    EXPECT_TRUE(thread.Join());
    EXPECT_EQ(runs, 2);
    EXPECT_EQ(log.Count(L"thread body ended by exception: worker lost its device"), 1u) << log.Dump();
}

TEST(ThreadTest, DestructorWaitsForTheBody)
{
    EventObject started(false, false), go(false, false);
    std::atomic<bool> done{false};
    {
        FunctionThread thread([&] {
            started.Set();
            go.Wait();
            done = true;
        });
        ASSERT_TRUE(thread.Start());
        ASSERT_TRUE(started.Wait(10000));
        go.Set();
    }
    EXPECT_TRUE(done) << "the destructor returned before the body ended";
}

TEST(ThreadPoolTest, RunsEveryOperationOnceAndSurvivesThrowingOnes)
{
    testsupport::LogCapture log;
    constexpr int count = 300;
    std::array<std::atomic<int>, count> runs{};
    std::atomic<int> onMain{0};
    ThreadPool pool(3);
    for (int i = 0; i < count; ++i) {
        ASSERT_TRUE(pool.AddOperation(operation([&, i] {
            ++runs[i];
            onMain += Toolkit::Thread::IsMainThread();
        })));
        if (i % 50 == 0) {
            ASSERT_TRUE(pool.AddOperation(operation([standard = i % 100 == 0] {
                if (standard)
                    throw std::runtime_error("no browser found");
                throw 7;
            })));
        }
    }
    ASSERT_TRUE(pool.WaitUntilIdle(10000));
    for (int i = 0; i < count; ++i)
        EXPECT_EQ(runs[i], 1) << "operation " << i;
    EXPECT_EQ(onMain, 0);
    EXPECT_EQ(log.Count(L"FunctionOperation failed: no browser found"), 3u) << log.Dump();
    EXPECT_EQ(log.Count(L"failed with an unknown exception"), 3u);
}

// The pool is shut down at exit: what is queued then still runs.
TEST(ThreadPoolTest, ShutdownRunsWhatIsQueued)
{
    EventObject entered(true, false), go(true, false);
    std::atomic<int> runs{0};
    ThreadPool pool(1);
    ASSERT_TRUE(pool.AddOperation(operation([&] {
        entered.Set();
        go.Wait();
    })));
    ASSERT_TRUE(pool.AddOperation(operation([&] { ++runs; })));
    ASSERT_TRUE(entered.Wait(10000));
    EXPECT_FALSE(pool.WaitUntilIdle(1)) << "a running operation keeps the pool busy";
    go.Set();
    pool.Shutdown();
    EXPECT_EQ(runs, 1);
}

// One step on the object: 'S' Set, 'R' Reset, '+' Wait(0) must succeed,
// '-' Wait(0) must fail, 't' a short timed Wait must time out.
TEST(EventObjectTest, SingleThreadSemantics)
{
    const struct {
        const char* name;
        bool manualReset, initiallySignalled;
        const char* steps;
    } cases[] = {
        {"auto, initially set, taken once", false, true, "+-"},
        {"auto, set with nobody waiting stays set", false, false, "-S+-"},
        {"auto, repeated sets count as one", false, false, "SS+-"},
        {"auto, reset clears a pending set", false, false, "SR-"},
        {"manual, set releases every wait until reset", true, false, "-S++R-S+"},
        {"manual, timed wait times out", true, false, "t"},
    };
    for (const auto& c : cases) {
        EventObject event(c.manualReset, c.initiallySignalled);
        const std::string steps = c.steps;
        for (size_t i = 0; i < steps.size(); ++i) {
            SCOPED_TRACE(std::string(c.name) + ", step " + std::to_string(i));
            switch (steps[i]) {
            case 'S': event.Set(); break;
            case 'R': event.Reset(); break;
            case '+': EXPECT_TRUE(event.Wait(0)); break;
            case '-': EXPECT_FALSE(event.Wait(0)); break;
            case 't': {
                const auto before = std::chrono::steady_clock::now();
                EXPECT_FALSE(event.Wait(5));
                EXPECT_GE(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(5));
                break;
            }
            }
        }
    }
}

TEST(EventObjectTest, ManualResetReleasesEveryWaiter)
{
    EventObject event(true, false);
    std::vector<std::future<bool>> waiters;
    for (int i = 0; i < 4; ++i)
        waiters.push_back(std::async(std::launch::async, [&] { return event.Wait(EventObject::c_infinite); }));
    event.Set();
    for (auto& w : waiters) {
        ASSERT_EQ(w.wait_for(std::chrono::seconds(10)), std::future_status::ready);
        EXPECT_TRUE(w.get());
    }
}

TEST(EventObjectTest, AutoResetReleasesOneWaiterPerSet)
{
    constexpr int waiters = 3;
    EventObject event(false, false);
    std::atomic<int> released{0};
    std::counting_semaphore<waiters> done(0);
    std::vector<std::thread> threads;
    for (int i = 0; i < waiters; ++i)
        threads.emplace_back([&] {
            if (event.Wait())
                ++released;
            done.release();
        });
    for (int i = 1; i <= waiters; ++i) {
        event.Set();
        ASSERT_TRUE(done.try_acquire_for(std::chrono::seconds(10))) << "set " << i << " released nobody";
        EXPECT_EQ(released, i);
    }
    for (auto& t : threads)
        t.join();
    // Had any Set released two waiters, a later one would have found nobody
    // waiting and left the object signalled.
    EXPECT_FALSE(event.Wait(0));
}

} // namespace

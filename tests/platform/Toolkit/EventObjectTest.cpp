#include "Toolkit/EventObject.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <latch>
#include <semaphore>
#include <string>
#include <thread>
#include <vector>

namespace {

using Toolkit::EventObject;

// One step on the object: 'S' Set, 'R' Reset, '+' Wait(0) must succeed,
// '-' Wait(0) must fail, 't' a short timed Wait must time out.
struct Case {
    const char* name;
    bool manualReset;
    bool initiallySignalled;
    const char* steps;
};

TEST(EventObjectTest, SingleThreadSemantics)
{
    const Case cases[] = {
        {"auto, initially set, taken once", false, true, "+-"},
        {"auto, set with nobody waiting stays set", false, false, "-S+-"},
        {"auto, repeated sets count as one", false, false, "SS+-"},
        {"auto, reset clears a pending set", false, false, "SR-"},
        {"manual, initially set, stays set", true, true, "+++"},
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
    EXPECT_EQ(released, waiters);
    EXPECT_FALSE(event.Wait(0));
}

// Producers and consumers hammer one auto-reset object; a consumer must
// never be released without a Set behind it.
TEST(EventObjectTest, ConcurrentSetAndWaitStress)
{
    constexpr int producers = 3, consumers = 3, setsEach = 2000;
    EventObject event(false, false);
    EventObject someoneReleased(true, false);
    std::atomic<int> sets{0}, released{0}, overReleased{0};
    std::atomic<bool> stop{false};
    std::latch consumersStarted(consumers);

    std::vector<std::future<void>> consumerDone;
    for (int i = 0; i < consumers; ++i)
        consumerDone.push_back(std::async(std::launch::async, [&] {
            consumersStarted.count_down();
            while (!stop) {
                if (!event.Wait(1))
                    continue;
                if (++released > sets)
                    ++overReleased;
                someoneReleased.Set();
            }
        }));
    consumersStarted.wait();
    std::vector<std::thread> producerThreads;
    for (int i = 0; i < producers; ++i)
        producerThreads.emplace_back([&] {
            for (int n = 0; n < setsEach; ++n) {
                ++sets;
                event.Set();
                if (n % 64 == 0)
                    event.Reset();
            }
        });
    for (auto& t : producerThreads)
        t.join();
    // However the threads were scheduled, a last Set reaches a consumer.
    ++sets;
    event.Set();
    EXPECT_TRUE(someoneReleased.Wait(10000));
    stop = true;
    for (auto& c : consumerDone)
        ASSERT_EQ(c.wait_for(std::chrono::seconds(10)), std::future_status::ready);

    EXPECT_EQ(overReleased, 0);
    EXPECT_LE(released, sets);
}

} // namespace

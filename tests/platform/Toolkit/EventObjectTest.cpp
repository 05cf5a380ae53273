#include "Toolkit/EventObject.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
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

} // namespace

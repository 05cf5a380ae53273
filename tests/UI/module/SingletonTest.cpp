// The singleton slot and the table of managers: creation and release orders,
// copies that outlive a release, and a slot read from another thread while
// the manager is being released.
#include "module/SingletonSlot.h"
#include "module/SingletonTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace slottest {

std::vector<std::string> g_journal;

template <int N>
struct Manager : UIKit::Singleton<Manager<N>> {
    Manager() { g_journal.push_back("new " + std::to_string(N)); }
    ~Manager()
    {
        // What a reader of the slot sees while the manager is destroyed.
        g_journal.push_back("delete " + std::to_string(N) + (Manager::s_pInstance ? " slot set" : " slot empty") +
                            (Manager::Instance().IsNull() ? "" : " instance given"));
    }
};

using A = Manager<1>;
using B = Manager<2>;
using C = Manager<3>;

// Read from a second thread while the main thread releases and re-creates.
struct Polled : UIKit::Singleton<Polled> {
    ~Polled() { alive = false; }
    std::atomic<bool> alive{true};
    int value = 7;
};

} // namespace slottest

UIKIT_SINGLETON_SLOT(slottest::A)
UIKIT_SINGLETON_SLOT(slottest::B)
UIKIT_SINGLETON_SLOT(slottest::C)
UIKIT_SINGLETON_SLOT(slottest::Polled)

namespace slottest {
namespace {

// Rows deliberately listed in neither order: the ranks decide.
UIKit::SingletonTable table()
{
    return UIKit::SingletonTable({
        UIKit::SingletonTable::Entry<B>("B", 2, 1),
        UIKit::SingletonTable::Entry<C>("C", 3, 3),
        UIKit::SingletonTable::Entry<A>("A", 1, 2),
    });
}

long deletions(int n)
{
    const std::string prefix = "delete " + std::to_string(n);
    return std::count_if(g_journal.begin(), g_journal.end(),
                         [&](const std::string& entry) { return entry.starts_with(prefix); });
}

class SingletonTableTest : public testing::Test {
protected:
    void SetUp() override { g_journal.clear(); }
    void TearDown() override { table().ReleaseAll(); }
};

TEST_F(SingletonTableTest, CreatesAndReleasesInTheirOwnOrdersAndHeldCopiesOutliveTheRelease)
{
    const auto t = table();
    t.CreateAll();
    t.CreateAll(); // a second initialisation creates nothing
    EXPECT_EQ(g_journal, (std::vector<std::string>{"new 1", "new 2", "new 3"}));
    t.ReleaseAll();
    // The slot still holds its cell while the manager goes, but nobody is
    // handed a manager that is being destroyed.
    EXPECT_EQ(g_journal, (std::vector<std::string>{"new 1", "new 2", "new 3", "delete 2 slot set",
                                                   "delete 1 slot set", "delete 3 slot set"}));
    EXPECT_EQ(A::s_pInstance, nullptr);

    // A copy held outside outlives the release; a new start makes a fresh one.
    g_journal.clear();
    t.CreateAll();
    auto kept = A::Instance();
    t.ReleaseAll();
    EXPECT_TRUE(A::Instance().IsNull());
    EXPECT_EQ(deletions(1), 0) << "a held copy keeps the manager";
    t.CreateAll();
    EXPECT_NE(A::Instance().get(), kept.get());
    kept.ReleaseRef();
    EXPECT_EQ(deletions(1), 1) << "the last copy destroys it";
}

// A device thread keeps asking for the manager while the main thread
// releases and re-creates it: every answer is null or a live manager.
// Under ThreadSanitizer a copy taken from a freed cell is reported.
TEST(SingletonSlotTest, InstanceFromAnotherThreadDuringReleaseIsLiveOrNull)
{
    std::atomic<bool> stop{false};
    std::atomic<int> dead{0};
    Polled::CreateInstance();
    std::thread reader([&] {
        while (!stop) {
            auto manager = Polled::Instance();
            if (!manager.IsNull() && (!manager->alive || manager->value != 7))
                ++dead;
        }
    });
    for (int round = 0; round < 2000; ++round) {
        Polled::ReleaseInstance();
        Polled::CreateInstance();
    }
    stop = true;
    reader.join();
    Polled::ReleaseInstance();
    EXPECT_EQ(dead, 0);
}

} // namespace
} // namespace slottest

#include "Toolkit/smart_ptr.h"

#include <gtest/gtest.h>

#include <memory>

#include <string>
#include <thread>
#include <vector>

using Toolkit::smart_ptr;

namespace {

std::vector<std::string>* g_journal = nullptr;

struct Tracked {
    virtual ~Tracked() { g_journal->push_back("delete"); }
};
struct Derived : Tracked {};
struct Other {
    virtual ~Other() = default;
};

class Action : public Toolkit::smart_ptr_custom_action {
public:
    explicit Action(std::string name) : m_name(std::move(name)) {}
    ~Action() override { g_journal->push_back(m_name + ".dtor"); }
    void BeforeRelease() override { g_journal->push_back(m_name + ".before"); }
    void AfterRelease() override { g_journal->push_back(m_name + ".after"); }

private:
    std::string m_name;
};

class SmartPtrTest : public testing::Test {
protected:
    void SetUp() override { g_journal = &journal; }
    void TearDown() override { g_journal = nullptr; }
    std::vector<std::string> journal;
};

TEST_F(SmartPtrTest, LastReleaseDeletesOnceWithCustomActionsAroundIt)
{
    smart_ptr<Tracked> a(new Tracked);
    EXPECT_TRUE(a.AddCustomAction(new Action("first")));
    smart_ptr<Tracked> copy = a;
    EXPECT_TRUE(copy.AddCustomAction(new Action("second")));
    a.ReleaseRef();
    EXPECT_TRUE(journal.empty()) << "actions ran while a copy was still alive";
    copy.ReleaseRef();
    copy.ReleaseRef(); // releasing a null pointer is harmless
    const std::vector<std::string> expected{"first.before", "second.before", "delete",   "first.after",
                                            "first.dtor",   "second.after",  "second.dtor"};
    EXPECT_EQ(journal, expected);

    smart_ptr<Tracked> none;
    EXPECT_FALSE(none.AddCustomAction(new Action("orphan")));
    EXPECT_EQ(journal.back(), "orphan.dtor") << "an action that cannot be attached is freed";
}

TEST_F(SmartPtrTest, DynamicCastSharesOwnershipOrGivesNull)
{
    smart_ptr<Tracked> base(new Derived);
    base.AddCustomAction(new Action("act"));
    auto derived = base.DynamicCast<Derived>();
    ASSERT_FALSE(derived.IsNull());
    EXPECT_TRUE(base.DynamicCast<Other>().IsNull());
    base.ReleaseRef();
    EXPECT_TRUE(journal.empty());
    derived.ReleaseRef();
    EXPECT_EQ(journal, (std::vector<std::string>{"act.before", "delete", "act.after", "act.dtor"}));
}

TEST_F(SmartPtrTest, CountingFromManyThreadsDeletesExactlyOnce)
{
    smart_ptr<Tracked> shared(new Tracked);
    shared.AddCustomAction(new Action("act"));
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([shared] {
            for (int i = 0; i < 20000; ++i) {
                smart_ptr<Tracked> copy = shared;
                smart_ptr<Tracked> another(copy);
                copy.ReleaseRef();
            }
        });
    for (auto& t : threads)
        t.join();
    EXPECT_EQ(shared.GetRefCount(), 1);
    shared.ReleaseRef();
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "delete"), 1);
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "act.before"), 1);
}

// An object that hands out weak references to itself must see its owner.
TEST_F(SmartPtrTest, ObjectsKeepingWeakSelfReferencesSeeTheirOwner)
{
    struct Self : std::enable_shared_from_this<Self> {};
    Toolkit::smart_ptr<Self> p(new Self);
    EXPECT_FALSE(p->weak_from_this().expired());
    const std::weak_ptr<Self> weak = p->weak_from_this();
    p.reset();
    EXPECT_TRUE(weak.expired());
}

} // namespace

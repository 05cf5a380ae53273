#include "Toolkit/smart_ptr.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using Toolkit::smart_ptr;

namespace {

std::vector<std::string>* g_journal = nullptr;

struct Tracked {
    virtual ~Tracked() { g_journal->push_back("delete"); }
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

#include "Toolkit/LibModuleManager.h"
#include "app/LibModule.h"
#include "module/SingletonTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

std::vector<std::string> g_journal;

template <int N>
struct Manager : UIKit::Singleton<Manager<N>> {
    Manager() { g_journal.push_back("new " + std::to_string(N)); }
    ~Manager() { g_journal.push_back("delete " + std::to_string(N)); }
};

using A = Manager<1>;
using B = Manager<2>;
using C = Manager<3>;

// Rows deliberately listed in neither order: the ranks decide.
UIKit::SingletonTable table()
{
    return UIKit::SingletonTable({
        UIKit::SingletonTable::Entry<B>("B", 2, 1),
        UIKit::SingletonTable::Entry<C>("C", 3, 3),
        UIKit::SingletonTable::Entry<A>("A", 1, 2),
    });
}

class SingletonTableTest : public testing::Test {
protected:
    void SetUp() override { g_journal.clear(); }
    void TearDown() override { table().ReleaseAll(); }
};

TEST_F(SingletonTableTest, CreatesAndReleasesInTheirOwnOrders)
{
    const auto t = table();
    t.CreateAll();
    t.CreateAll(); // a second initialisation creates nothing
    EXPECT_EQ(g_journal, (std::vector<std::string>{"new 1", "new 2", "new 3"}));
    t.ReleaseAll();
    EXPECT_EQ(g_journal, (std::vector<std::string>{"new 1", "new 2", "new 3", "delete 2", "delete 1", "delete 3"}));
    EXPECT_EQ(A::s_pInstance, nullptr);
    t.ReleaseAll(); // twice, or without creation: nothing
    EXPECT_EQ(g_journal.size(), 6u);
}

TEST_F(SingletonTableTest, OutsideCopiesOutliveReleaseAndReinitialiseMakesAFreshInstance)
{
    const auto t = table();
    t.CreateAll();
    auto kept = A::Instance();
    t.ReleaseAll();
    EXPECT_EQ(A::s_pInstance, nullptr);
    EXPECT_TRUE(A::Instance().IsNull());
    EXPECT_EQ(std::count(g_journal.begin(), g_journal.end(), "delete 1"), 0) << "a held copy keeps the manager";
    t.CreateAll();
    EXPECT_NE(A::Instance().get(), kept.get());
    kept.ReleaseRef();
    EXPECT_EQ(std::count(g_journal.begin(), g_journal.end(), "delete 1"), 1);
}

// The library's managers, in the order they are made and in the (different)
// order they are dropped. Every manager in the table must appear in both
// lists at its place.
const std::vector<std::string> kCreation{
    "SingleApplicationInstance", "AppController", "Appearance", "ConfDataFile", "DCControler", "CtrlFactory",
    "TemplateManager", "EventManager", "HotkeysManager", "TransitionManager", "SequenceManager",
    "ScreenManager", "ShortcutManager", "PluginManager", "MainSettingsController", "NotifPopupManager"};
const std::vector<std::string> kRelease{
    "DCControler", "CtrlFactory", "TemplateManager", "HotkeysManager", "EventManager", "TransitionManager",
    "SequenceManager", "ScreenManager", "ShortcutManager", "PluginManager", "MainSettingsController",
    "ConfDataFile", "NotifPopupManager", "Appearance", "AppController", "SingleApplicationInstance"};

std::vector<std::string> restrictTo(const std::vector<std::string>& order, const std::vector<std::string>& present)
{
    std::vector<std::string> out;
    for (const auto& name : order)
        if (std::find(present.begin(), present.end(), name) != present.end())
            out.push_back(name);
    return out;
}

TEST(LibModuleTest, LibraryTableFollowsTheFixedOrders)
{
    const auto& table = UIKit::SingletonTable::Library();
    const auto created = table.CreationOrder();
    for (const auto& name : created)
        EXPECT_NE(std::find(kCreation.begin(), kCreation.end(), name), kCreation.end()) << "unknown manager " << name;
    EXPECT_EQ(created, restrictTo(kCreation, created));
    EXPECT_EQ(table.ReleaseOrder(), restrictTo(kRelease, created));
}

TEST(LibModuleTest, LoadingTheLibraryRegistersTheModule)
{
    ASSERT_NE(UIToolkitModule, nullptr);
    auto manager = *Toolkit::LibModuleManager::s_pInstance;
    EXPECT_TRUE(manager->IsRegistered(UIToolkitModule));
    EXPECT_NE(dynamic_cast<UIKit::LibModule*>(UIToolkitModule), nullptr);
}

} // namespace

#include "Toolkit/DynamicLibrary.h"
#include "Toolkit/LibModuleManager.h"
#include "app/AppController.h"
#include "app/LibModule.h"
#include "module/SingletonTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

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

// A plug-in built with hidden visibility reads the controller through the
// slot: it must see the host's instance, not a private slot of its own.
TEST(LibModuleTest, APluginReadsTheHostsManagerThroughTheSharedSlot)
{
    const bool made = UIKit::AppController::s_pInstance == nullptr;
    UIKit::AppController::CreateInstance();
    auto host = UIKit::AppController::Instance();
    ASSERT_FALSE(host.IsNull());
    Toolkit::DynamicLibrary plugin;
    ASSERT_TRUE(plugin.Load(std::string(UIKIT_LIB_DIR) + "/libslot_reader.so"));
    auto read = reinterpret_cast<void* (*)()>(plugin.GetSymbol("SlotReaderAppController"));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read(), host.get());
    host.ReleaseRef();
    if (made)
        UIKit::AppController::ReleaseInstance();
}

} // namespace

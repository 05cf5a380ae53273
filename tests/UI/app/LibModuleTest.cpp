#include "Toolkit/DynamicLibrary.h"
#include "Toolkit/LibModuleManager.h"
#include "app/AppController.h"
#include "app/LibModule.h"

#include <gtest/gtest.h>

#include <string>

namespace {

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

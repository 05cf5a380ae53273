// Hot keys: which shortcut rows register one, and a pressed key firing
// every entry bound to it, in order.
#include "NavigationCore.h"

#include "navigation/HotkeysManager.h"
#include "navigation/ShortcutManager.h"
#include "xml/SymbolicIds.h"

namespace navtest {
namespace {

// Journals every call; only the plug-in "101A" handles its keys.
struct Registry : UIKit::IPluginRegistry {
    bool CallHotkey(const Text& pluginKey, const Text& name) override
    {
        calls.push_back(pluginKey + L":" + name);
        return pluginKey == L"101A";
    }
    std::vector<Text> calls;
};

TEST(Hotkeys, OnlyAPositiveLeadingNumberRegistersAKey)
{
    UIKit::HotkeysManager::CreateInstance();
    UIKit::ShortcutManager shortcuts;
    for (const auto* hotkey : {L"65", L"0", L"-3", L"abc", L"", L" 66x"}) {
        auto shortcut = row(L"Main", UIKit::ID_OK, L"Seq", L"help");
        shortcut->hotkey = hotkey;
        shortcuts.Add(L"Home", shortcut, L"101A");
    }
    EXPECT_EQ(shortcuts.Get(L"Home", L"Main")->size(), 6u) << "every row is kept";
    std::vector<int> keys;
    for (const auto& entry : UIKit::HotkeysManager::Instance()->GetEntries())
        keys.push_back(entry->GetKeyNumber());
    EXPECT_EQ(keys, (std::vector<int>{65, 66}));
    UIKit::HotkeysManager::ReleaseInstance();
}

TEST(Hotkeys, FindFiresEveryEntryOfTheKeyInRegistrationOrder)
{
    UIKit::HotkeysManager hotkeys;
    Registry registry;
    hotkeys.Add(L"101A", L"Seq", L"a", 65);
    hotkeys.Add(L"102B", L"Seq", L"b", 66);
    hotkeys.Add(L"102B", L"Seq", L"c", 65);
    hotkeys.Add(L"101A", L"Seq", L"d", 65);
    hotkeys.Add(L"101A", L"", L"e", 65); // no sequence: not registered
    struct Case {
        UIKit::IPluginRegistry* registry;
        int key;
        bool result;
        const wchar_t* name;
        std::vector<Text> calls;
    } cases[] = {{&registry, 65, true, L"d", {L"101A:a", L"102B:c", L"101A:d"}},
                 {&registry, 66, false, L"b", {L"102B:b"}},
                 {&registry, 70, false, L"", {}},
                 {nullptr, 65, false, L"d", {}}};
    for (const auto& c : cases) {
        registry.calls.clear();
        hotkeys.SetPluginRegistry(c.registry);
        Text name = L"stale";
        EXPECT_EQ(hotkeys.Find(c.key, name), c.result) << c.key;
        EXPECT_EQ(name, c.name);
        EXPECT_EQ(registry.calls, c.calls);
    }
    EXPECT_TRUE(hotkeys.IsHotkey(66, L"Seq", L"b"));
    EXPECT_FALSE(hotkeys.IsHotkey(66, L"Other", L"b"));
}

} // namespace
} // namespace navtest

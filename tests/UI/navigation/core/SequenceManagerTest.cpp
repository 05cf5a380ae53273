// Carrying out events: which row wins, how the stack of sequences moves,
// going back, home, and a transition that navigates while it runs; hot
// keys: which shortcut rows register one, and a pressed key firing every
// entry bound to it, in order.
#include "NavigationCore.h"
#include "TestSupport.h"

#include "navigation/HotkeysManager.h"
#include "navigation/ShortcutManager.h"
#include "xml/SymbolicIds.h"

namespace navtest {
namespace {

TEST_F(NavigationTest, RowsOfTheCurrentStateComeFirstRowsIntoItAreSkippedAndUnknownTransitionsStayPut)
{
    for (const auto* state : {L"Main", L"Other"})
        addTransition(L"Home", state);
    addTransition(L"A", L"Main");
    events->Add(L"Home", row(L"Main", 1, L"A", L"toAMain"));
    events->Add(L"Home", row(L"Main", 5, L"Home", L"toHomeOther")); // into the current sequence
    events->Add(L"Home", row(L"Main", 5, L"A", L"toAMain"));
    events->Add(L"home", row(L"Main", 6, L"A", L"toAMain")); // names compare exactly
    events->Add(L"Home", row(L"Main", 7, L"A", L"missing"));
    for (const int id : {1, 2, 6})
        addGlobalRow(id, L"B");
    struct Case { bool atHome; int id; bool done; std::string where; };
    const Case cases[] = {{true, 1, true, "A/Main"},    {true, 2, true, "B/Main"},  {true, 5, true, "A/Main"},
                          {true, 6, true, "B/Main"},    {false, 1, true, "B/Main"}, {true, 9, false, "Home/Main"},
                          {true, 7, false, "Home/Main"}};
    testsupport::LogCapture log;
    for (const auto& c : cases) {
        sequences->OnApplicationExit();
        if (c.atHome)
            sequences->DoTransition(L"Home", L"toHomeMain", {});
        EXPECT_EQ(sequences->DoEvent(c.id), c.done) << c.id;
        EXPECT_EQ(where(), c.where) << c.id;
    }
    EXPECT_EQ(log.Count(L"Transition [missing] not found!"), 1u);
}

TEST_F(NavigationTest, ASequenceMadeCurrentAgainMovesToTheTopInsteadOfAppearingTwice)
{
    for (const auto* name : {L"Home", L"A", L"B"})
        addTransition(name, L"Main");
    struct Step { const wchar_t* sequence; bool switched; std::string stack; };
    const Step steps[] = {{L"Home", true, "Home"}, {L"A", true, "Home A"}, {L"B", true, "Home A B"},
                          {L"A", true, "Home B A"}, {L"A", false, "Home B A"}, {L"Home", true, "B A Home"}};
    const int notices = g_beforeTransitions;
    for (const auto& s : steps) {
        EXPECT_EQ(sequences->DoTransition(s.sequence, Text(L"to") + s.sequence + L"Main", {}), s.switched);
        EXPECT_EQ(stackNames(), s.stack);
    }
    EXPECT_EQ(g_beforeTransitions - notices, 6); // the dashboard hears of every attempt
    // Hiding a sequence deactivated its state: only the current one is active.
    for (const auto& sequence : sequences->GetStack())
        EXPECT_EQ(sequence->GetState()->IsActivated(), sequence == sequences->GetCurrentSequence());
}

TEST_F(NavigationTest, GoingBackPutsTheLeftSequenceBackWhenTheStateBelowRefusesToReturn)
{
    for (const bool refuse : {false, true}) {
        sequences->OnApplicationExit();
        addTransition(L"Home", L"Main", refuse);
        addTransition(L"A", L"Main");
        sequences->DoTransition(L"Home", L"toHomeMain", {});
        sequences->DoTransition(L"A", L"toAMain", {});
        sequences->PreviousSequence(UIKit::AnimationSlideRight);
        EXPECT_EQ(stackNames(), refuse ? "Home A" : "Home") << refuse;
        EXPECT_EQ(journal.back(), "return Home/Main");
    }
    sequences->OnApplicationExit(); // leaving the only sequence leaves nothing to show
    sequences->DoTransition(L"A", L"toAMain", {});
    sequences->PreviousSequence(UIKit::AnimationNone);
    EXPECT_EQ(stackNames(), "");
    EXPECT_EQ(journal.back(), "activate A/Main");
}

TEST_F(NavigationTest, HomeIsTheGlobalRowWithTheSmallestIdBelowTen)
{
    struct Case { std::vector<int> ids; std::string where; };
    const Case cases[] = {{{7, 3}, "S3/Main"}, {{12}, ""}, {{10, 9}, "S9/Main"}, {{-1, 8}, "S8/Main"}, {{}, ""}};
    for (const auto& c : cases) {
        TearDown();
        SetUp();
        for (const int id : c.ids)
            addGlobalRow(id, L"S" + std::to_wstring(id));
        sequences->DoHome();
        EXPECT_EQ(where(), c.where) << c.ids.size();
    }
}

TEST_F(NavigationTest, ATransitionThatCarriesOutAnotherEventWhileRunningDoesNotDeadlock)
{
    addGlobalRow(2, L"B");
    addTransition(L"A", L"Main", false, [this] { sequences->DoEvent(2); });
    events->Add(L"*", row(L"*", 1, L"A", L"toAMain"));
    // A navigation lock that is not re-entrant hangs here (and the test
    // times out).
    EXPECT_TRUE(sequences->DoEvent(1));
    EXPECT_EQ(stackNames(), "A B");
    EXPECT_EQ(journal, (std::vector<std::string>{"activate B/Main", "activate A/Main"}));
}

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
    };
    const Case cases[] = {{&registry, 65, true, L"d", {L"101A:a", L"102B:c", L"101A:d"}},
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

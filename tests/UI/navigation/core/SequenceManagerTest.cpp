// Carrying out events: which row wins, how the stack of sequences moves,
// going back, home, and a transition that navigates while it runs.
#include "NavigationCore.h"
#include "TestSupport.h"

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
    struct Case {
        bool atHome;
        int id;
        bool done;
        std::string where;
    } cases[] = {{true, 1, true, "A/Main"}, {true, 2, true, "B/Main"},  {true, 5, true, "A/Main"},
                 {true, 6, true, "B/Main"}, {false, 1, true, "B/Main"}, {true, 9, false, "Home/Main"},
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
    struct Step {
        const wchar_t* sequence;
        bool switched;
        std::string stack;
    } steps[] = {{L"Home", true, "Home"},  {L"A", true, "Home A"},    {L"B", true, "Home A B"},
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
    struct Case {
        std::vector<int> ids;
        std::string where;
    } cases[] = {{{7, 3}, "S3/Main"}, {{12}, ""}, {{10, 9}, "S9/Main"}, {{-1, 8}, "S8/Main"}, {{}, ""}};
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

} // namespace
} // namespace navtest

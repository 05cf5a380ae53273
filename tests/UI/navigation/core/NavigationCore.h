#pragma once
// Shared by the navigation core's tests: states that journal their
// activations, a transition that makes them, rows written in code, and a
// fixture with fresh managers for every test.
#include "navigation/EventManager.h"
#include "navigation/PreviousSequenceParameter.h"
#include "navigation/Sequence.h"
#include "navigation/SequenceManager.h"
#include "navigation/TransitionManager.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace navtest {

extern int g_beforeTransitions; // counted by the dashboard stand-in
using Text = TString<wchar_t>;
inline std::string narrow(const Text& text) { return std::string(text.begin(), text.end()); }

// Journals "activate S/T" or, when its sequence is returned to, "return S/T"
// (which it refuses if asked to).
struct JournalState : UIKit::IState {
    JournalState(const Text& sequence, const Text& state, bool refuse, std::vector<std::string>& journal)
        : IState(sequence, state), refuseReturn(refuse), journal(journal) {}
    bool Activate(bool visible, Toolkit::smart_ptr<UIKit::IStateParameter> parameter) override
    {
        const bool returning = bool(parameter.DynamicCast<UIKit::PreviousSequenceParameter>());
        journal.push_back((returning ? "return " : "activate ") + narrow(m_sequenceName + L"/" + m_stateName));
        IState::Activate(visible, parameter);
        return !(returning && refuseReturn);
    }
    bool refuseReturn;
    std::vector<std::string>& journal;
};

// A new JournalState on every call, after an optional hook.
struct MakeState : UIKit::ITransition {
    std::function<Toolkit::smart_ptr<UIKit::IState>()> make;
    Toolkit::smart_ptr<UIKit::IState> DoTransition() override { return make(); }
};

// In state `state`, id `id` goes to `target` through `transition`.
inline Toolkit::smart_ptr<UIKit::EventDescriptor> row(const Text& state, int id, const Text& target,
                                                      const Text& transition)
{
    auto made = Toolkit::make_smart<UIKit::EventDescriptor>(Toolkit::smart_ptr<UIKit::XMLNode>());
    made->state = state;
    made->id = id;
    made->sequence = target;
    made->transition = transition;
    return made;
}

class NavigationTest : public testing::Test {
protected:
    void SetUp() override
    {
        UIKit::EventManager::CreateInstance();
        UIKit::TransitionManager::CreateInstance();
        UIKit::SequenceManager::CreateInstance();
        sequences = UIKit::SequenceManager::Instance().get();
        events = UIKit::EventManager::Instance().get();
        transitions = UIKit::TransitionManager::Instance().get();
    }
    void TearDown() override
    {
        UIKit::SequenceManager::ReleaseInstance();
        UIKit::TransitionManager::ReleaseInstance();
        UIKit::EventManager::ReleaseInstance();
    }
    // Registers "to<sequence><state>", which makes that state.
    void addTransition(const Text& sequence, const Text& state, bool refuseReturn = false,
                       std::function<void()> hook = {})
    {
        auto transition = Toolkit::make_smart<MakeState>();
        transition->make = [=, this] {
            if (hook)
                hook();
            return Toolkit::make_smart<JournalState>(sequence, state, refuseReturn, journal);
        };
        transitions->Add(L"to" + sequence + state, transition);
    }
    // A global row: id -> the sequence's "Main" state.
    void addGlobalRow(int id, const Text& sequence)
    {
        addTransition(sequence, L"Main");
        events->Add(L"*", row(L"*", id, sequence, L"to" + sequence + L"Main"));
    }
    // "Sequence/State" of the current sequence; "" with an empty stack.
    std::string where() const
    {
        const auto current = sequences->GetCurrentSequence();
        if (!current)
            return "";
        const auto state = current->GetState();
        return narrow(current->GetName()) + "/" + (state ? narrow(state->GetStateName()) : "");
    }
    std::string stackNames() const
    {
        std::string names;
        for (const auto& sequence : sequences->GetStack())
            names += (names.empty() ? "" : " ") + narrow(sequence->GetName());
        return names;
    }

    // Held by their slots between SetUp and TearDown.
    UIKit::SequenceManager* sequences = nullptr;
    UIKit::EventManager* events = nullptr;
    UIKit::TransitionManager* transitions = nullptr;
    std::vector<std::string> journal;
};

} // namespace navtest

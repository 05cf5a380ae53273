#pragma once
#include "module/Export.h"
// The stack of sequences (the last is current, none appears twice) and the
// navigation operations on it. Every navigation operation holds the
// navigation lock throughout and they call one another under it, so it is
// re-entrant; the stack lock guards the stack alone and is always taken
// inside the navigation lock, never the other way round. Navigation runs on
// the GUI thread; other threads post a SequenceDoEventEvent instead.
#include "Toolkit/Mutex.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "frames/Animation.h"
#include "module/Singleton.h"
#include "navigation/IStateParameter.h"

#include <vector>

namespace UIKit {

class Sequence;

class UIKIT_API SequenceManager : public Singleton<SequenceManager> {
public:
    // The name of the global event table, both as sequence and as state.
    static const wchar_t* const c_strAny;

    // The top of the stack, or null.
    Toolkit::smart_ptr<Sequence> GetCurrentSequence() const;
    // The sequence of that name on the stack; otherwise a new, hidden,
    // stateless one that is not put on the stack.
    Toolkit::smart_ptr<Sequence> GetSequence(const TString<wchar_t>& name);
    // Hides the current sequence and moves (or pushes) this one to the top;
    // false when it already is the current one.
    bool SetCurrentSequence(Toolkit::smart_ptr<Sequence> sequence);
    // A copy of the stack, bottom first.
    std::vector<Toolkit::smart_ptr<Sequence>> GetStack() const;

    // Switches to the named sequence and runs the transition in it; false,
    // doing nothing, when that sequence is already current or the
    // transition is unknown.
    bool DoTransition(const TString<wchar_t>& sequence, const TString<wchar_t>& transition,
                      Toolkit::smart_ptr<IStateParameter> parameter);
    // Carries out the first row for (sequence, state, id) that moves the
    // navigation into another sequence; false when none does, or when that
    // row's transition is unknown (the navigation then stays put).
    bool DoEvent(const TString<wchar_t>& sequence, const TString<wchar_t>& state, int id,
                 Toolkit::smart_ptr<IStateParameter> parameter);
    // The id in the current sequence and state, else in the global table.
    bool DoEvent(int id);
    // Pops the current sequence and shows the one below again; when its
    // state refuses to activate, the popped one comes back.
    void PreviousSequence(Animation animation);
    // The global row with the smallest id below 10.
    void DoHome();
    // The first global row for the settings id.
    void DoSettings();
    // The first global row for the live-update plug-in id.
    void DoLiveUpdate();
    // Empties the stack; states are not deactivated.
    void OnApplicationExit();

private:
    void doFirstGlobalRow(int id);

    mutable Toolkit::Mutex m_navigationLock;
    mutable Toolkit::Mutex m_stackLock;
    std::vector<Toolkit::smart_ptr<Sequence>> m_stack;
};

} // namespace UIKit

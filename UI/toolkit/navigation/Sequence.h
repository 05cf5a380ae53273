#pragma once
#include "module/Export.h"
// One navigation context (home, settings, a connection flow): its name as
// event tables write it, whether it is the one on screen, and its current
// state with the transition that produced it.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "navigation/IState.h"
#include "navigation/ITransition.h"

namespace UIKit {

class UIKIT_API Sequence {
public:
    explicit Sequence(const TString<wchar_t>& name);

    const TString<wchar_t>& GetName() const { return m_name; }
    bool IsVisible() const { return m_visible; }
    const Toolkit::smart_ptr<ITransition>& GetTransition() const { return m_transition; }
    const Toolkit::smart_ptr<IState>& GetState() const { return m_state; }

    // Stores the flag and deactivates the current state either way: whoever
    // shows the sequence activates a state again.
    void SetVisible(bool visible);

    // Runs the named transition and activates the state it gives with this
    // sequence's visibility; false, changing nothing, for an unknown name.
    // The previous state is left as it is (SetVisible dealt with it).
    bool DoTransition(const TString<wchar_t>& transitionName, Toolkit::smart_ptr<IStateParameter> parameter);

private:
    TString<wchar_t> m_name;
    bool m_visible = false;
    Toolkit::smart_ptr<ITransition> m_transition;
    Toolkit::smart_ptr<IState> m_state;
};

} // namespace UIKit

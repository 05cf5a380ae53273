#include "navigation/Sequence.h"

#include "Toolkit/ILogger.h"
#include "navigation/TransitionManager.h"

namespace UIKit {

Sequence::Sequence(const TString<wchar_t>& name) : m_name(name) {}

void Sequence::SetVisible(bool visible)
{
    m_visible = visible;
    if (m_state)
        m_state->Deactivate();
}

bool Sequence::DoTransition(const TString<wchar_t>& transitionName, Toolkit::smart_ptr<IStateParameter> parameter)
{
    const auto transitions = TransitionManager::Instance();
    auto transition = transitions ? transitions->Get(transitionName) : Toolkit::smart_ptr<ITransition>();
    if (!transition)
        return false;
    m_transition = transition;
    // Kept in a local too: a state that navigates while it is activated may
    // run another transition of this sequence and replace m_state meanwhile.
    auto state = transition->DoTransition();
    if (!state) {
        TK_LOG(Toolkit::LogError) << "Transition [" << transitionName << "] gave no state";
        return false;
    }
    m_state = state;
    state->Activate(m_visible, std::move(parameter));
    return true;
}

} // namespace UIKit

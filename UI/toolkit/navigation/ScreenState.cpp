#include "navigation/ScreenState.h"

#include "frames/IDashboard.h"
#include "navigation/PreviousSequenceParameter.h"

namespace UIKit {

ScreenState::ScreenState(const TString<wchar_t>& sequence, const TString<wchar_t>& state,
                         const TString<wchar_t>& screen, Animation animation)
    : IState(sequence, state), m_screen(screen), m_animation(animation)
{
}

bool ScreenState::Activate(bool visible, Toolkit::smart_ptr<IStateParameter> parameter)
{
    IState::Activate(visible, parameter);
    if (!visible)
        return true;
    Animation animation = m_animation;
    if (auto previous = parameter.DynamicCast<PreviousSequenceParameter>())
        animation = previous->GetAnimation();
    IDashboard* dashboard = IDashboard::s_pCurrent;
    return dashboard && dashboard->ShowScreen(m_screen, animation, 0, 0);
}

} // namespace UIKit

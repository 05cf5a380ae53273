#include "navigation/ScreenTransition.h"

namespace UIKit {

ScreenTransition::ScreenTransition(const TString<wchar_t>& sequence, const TString<wchar_t>& state,
                                   const TString<wchar_t>& screen, Animation animation)
    : m_state(new ScreenState(sequence, state, screen, animation))
{
}

Toolkit::smart_ptr<ITransition> ScreenTransition::Make(const TString<wchar_t>& sequence,
                                                       const TString<wchar_t>& state,
                                                       const TString<wchar_t>& screen, Animation animation)
{
    return Toolkit::smart_ptr<ITransition>(new ScreenTransition(sequence, state, screen, animation));
}

Toolkit::smart_ptr<IState> ScreenTransition::DoTransition()
{
    return m_state;
}

} // namespace UIKit

#pragma once
#include "module/Export.h"
// The transition to one screen: it keeps a single ScreenState and hands it
// out every time, so a plug-in wires "event -> show this screen" with one
// registration:
//
//     transitions->Add(L"THome", ScreenTransition::Make(L"Home", L"HomeMain", L"HomeScreen"));
#include "navigation/ITransition.h"
#include "navigation/ScreenState.h"

namespace UIKit {

class UIKIT_API ScreenTransition : public ITransition {
public:
    ScreenTransition(const TString<wchar_t>& sequence, const TString<wchar_t>& state, const TString<wchar_t>& screen,
                     Animation animation = AnimationNone);

    static Toolkit::smart_ptr<ITransition> Make(const TString<wchar_t>& sequence, const TString<wchar_t>& state,
                                                const TString<wchar_t>& screen, Animation animation = AnimationNone);

    Toolkit::smart_ptr<IState> DoTransition() override;

private:
    Toolkit::smart_ptr<IState> m_state;
};

} // namespace UIKit

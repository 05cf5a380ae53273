#pragma once
#include "module/Export.h"
// A state that is one named screen: activating it while its sequence is on
// show asks the dashboard to bring that screen into the placeholder. The
// screen stays up when the state is deactivated, until the dashboard puts
// the next one in its place, so a switch never shows an empty placeholder.
#include "frames/Animation.h"
#include "navigation/IState.h"

namespace UIKit {

class UIKIT_API ScreenState : public IState {
public:
    ScreenState(const TString<wchar_t>& sequence, const TString<wchar_t>& state, const TString<wchar_t>& screen,
                Animation animation = AnimationNone);

    // Shows the screen when `visible`; false when it should be shown and the
    // dashboard could not (no dashboard, or no screen of that name). Coming
    // back from another sequence slides with the animation that sequence
    // asked for.
    bool Activate(bool visible, Toolkit::smart_ptr<IStateParameter> parameter) override;

    const TString<wchar_t>& GetScreenName() const { return m_screen; }

private:
    TString<wchar_t> m_screen;
    Animation m_animation;
};

} // namespace UIKit

#pragma once
// Opens the settings: its state shows the settings screen on the root page,
// through the settings controller, which resets the pages first.
#include "navigation/ITransition.h"

namespace settingsplugin {

class SettingsTransition : public UIKit::ITransition {
public:
    SettingsTransition();
    static Toolkit::smart_ptr<UIKit::ITransition> Make();

    Toolkit::smart_ptr<UIKit::IState> DoTransition() override { return m_state; }

private:
    Toolkit::smart_ptr<UIKit::IState> m_state;
};

} // namespace settingsplugin

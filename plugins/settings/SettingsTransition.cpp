#include "SettingsTransition.h"

#include "settings/MainSettingsController.h"

namespace settingsplugin {
namespace {

class SettingsState : public UIKit::IState {
public:
    SettingsState() : IState(L"Settings", L"SettingsMain") {}

    bool Activate(bool visible, Toolkit::smart_ptr<UIKit::IStateParameter> parameter) override
    {
        IState::Activate(visible, parameter);
        auto controller = UIKit::MainSettingsController::Instance();
        if (visible && controller)
            controller->DisplaySettingPanel(UIKit::AnimationNone);
        return controller != nullptr;
    }
};

} // namespace

SettingsTransition::SettingsTransition() : m_state(new SettingsState()) {}

Toolkit::smart_ptr<UIKit::ITransition> SettingsTransition::Make()
{
    return Toolkit::smart_ptr<UIKit::ITransition>(new SettingsTransition());
}

} // namespace settingsplugin

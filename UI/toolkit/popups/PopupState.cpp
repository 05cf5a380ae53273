#include "popups/PopupState.h"

namespace UIKit {

const wchar_t* const PopupState::c_strSequence = L"popup::popupstate";
const wchar_t* const PopupState::c_strState = L"popup";

PopupState::PopupState() : IState(c_strSequence, c_strState) {}

PopupState::~PopupState() = default;

bool PopupState::Activate(bool visible, Toolkit::smart_ptr<IStateParameter> parameter)
{
    IState::Activate(visible, std::move(parameter));
    return true;
}

bool PopupState::Deactivate()
{
    IState::Deactivate();
    return true;
}

} // namespace UIKit

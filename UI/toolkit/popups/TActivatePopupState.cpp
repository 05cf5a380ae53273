#include "popups/TActivatePopupState.h"

#include "popups/PopupState.h"

namespace UIKit {

Toolkit::smart_ptr<IState> TActivatePopupState::DoTransition()
{
    return Toolkit::smart_ptr<IState>(new PopupState());
}

} // namespace UIKit

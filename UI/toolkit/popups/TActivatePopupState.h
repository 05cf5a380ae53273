#pragma once
#include "module/Export.h"
// The transition into the popup state; each run gives a new PopupState. The
// popup manager registers it under the popup state's name.
#include "navigation/ITransition.h"

namespace UIKit {

class UIKIT_API TActivatePopupState : public ITransition {
public:
    Toolkit::smart_ptr<IState> DoTransition() override;
};

} // namespace UIKit

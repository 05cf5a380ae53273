#pragma once
#include "module/Export.h"
// The state a sequence passes through when a popup's action leads into the
// sequence that is already current: leaving for it and coming back makes
// the action's own state start afresh. It shows nothing itself.
#include "navigation/IState.h"

namespace UIKit {

class UIKIT_API PopupState : public IState {
public:
    static const wchar_t* const c_strSequence;
    static const wchar_t* const c_strState;

    PopupState();
    ~PopupState() override;

    bool Activate(bool visible, Toolkit::smart_ptr<IStateParameter> parameter) override;
    bool Deactivate() override;
};

} // namespace UIKit

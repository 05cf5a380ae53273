#pragma once
#include "module/Export.h"
// A named factory of the next state of a sequence. It may build a new state
// on every call or hand out one it keeps, but it always returns a state: the
// sequence activates what it gets without checking.
#include "Toolkit/smart_ptr.h"
#include "navigation/IState.h"

namespace UIKit {

class UIKIT_API ITransition {
public:
    virtual ~ITransition() = default;
    virtual Toolkit::smart_ptr<IState> DoTransition() = 0;
};

} // namespace UIKit

#include "navigation/TransitionNotice.h"

#include "frames/IDashboard.h"

namespace UIKit {

void NotifyBeforeTransition()
{
    if (auto* dashboard = IDashboard::s_pCurrent)
        dashboard->OnBeforeTransition();
}

} // namespace UIKit

#pragma once
#include "module/Export.h"
// What the host and plug-ins implement to take part in closing the
// application: they may veto a close request, and hear that it stops.

namespace UIKit {

class UIKIT_API AppEvent {
public:
    // True allows the application to close; false vetoes.
    virtual bool OnAppRequestClose() = 0;
    virtual void OnAppStopping() = 0;

protected:
    ~AppEvent() = default;
};

} // namespace UIKit

#pragma once
#include "module/Export.h"
// Tells registered listeners that the application is asked to close or is
// stopping, and shows or hides the dashboard's close button.
#include "Toolkit/Mutex.h"
#include "app/AppEvent.h"
#include "module/Singleton.h"

#include <vector>

namespace UIKit {

class UIKIT_API AppController : public Singleton<AppController> {
public:
    // Appends a listener; the same listener may be added more than once.
    void AddListener(Toolkit::smart_ptr<AppEvent> listener);
    // Removes the first entry for that listener, if any.
    void RemoveListener(Toolkit::smart_ptr<AppEvent> listener);

    // Asks every listener in order; the first veto stops the round and
    // gives false. A round calls the listeners registered when it began.
    bool DispatchAppRequestClose();
    void DispatchAppStopping();

    // Shows or hides the dashboard's ID_FRAME_CLOSE button.
    void ShowCloseButton(bool show);

private:
    std::vector<Toolkit::smart_ptr<AppEvent>> listeners();

    Toolkit::Mutex m_lock;
    std::vector<Toolkit::smart_ptr<AppEvent>> m_listeners;
};

} // namespace UIKit

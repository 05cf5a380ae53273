#include "app/AppController.h"

#include "factory/ControlIds.h"
#include "frames/IDashboard.h"
#include "app/App.h"
#include "util/Util.h"

namespace UIKit {

void AppController::AddListener(Toolkit::smart_ptr<AppEvent> listener)
{
    Toolkit::MutexLocker lock(m_lock);
    m_listeners.push_back(std::move(listener));
}

void AppController::RemoveListener(Toolkit::smart_ptr<AppEvent> listener)
{
    Toolkit::MutexLocker lock(m_lock);
    for (auto it = m_listeners.begin(); it != m_listeners.end(); ++it)
        if (it->get() == listener.get()) {
            m_listeners.erase(it);
            return;
        }
}

std::vector<Toolkit::smart_ptr<AppEvent>> AppController::listeners()
{
    Toolkit::MutexLocker lock(m_lock);
    return m_listeners;
}

// Listeners are called on a copy of the list, outside the lock: a listener
// may add or remove listeners, or wait for a thread that does, without
// deadlocking or invalidating the round in progress.
bool AppController::DispatchAppRequestClose()
{
    for (auto& listener : listeners())
        if (!listener->OnAppRequestClose())
            return false;
    return true;
}

void AppController::DispatchAppStopping()
{
    for (auto& listener : listeners())
        listener->OnAppStopping();
}

void AppController::ShowCloseButton(bool show)
{
    if (App::m_pDashboard)
        Util::ShowWindow(App::m_pDashboard, ID_FRAME_CLOSE, show, false);
}

} // namespace UIKit

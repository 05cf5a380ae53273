#pragma once
#include "module/Export.h"
// The application's main window: a skinned frame that the host implements.
// It owns two signals that let the host keep the interface responsive while
// it waits (closing, waiting), the placeholder in which screens are shown,
// and the operations the library asks of the host.
#include "Toolkit/EventObject.h"
#include "frames/Animation.h"
#include "frames/FrameCtrl.h"

#include <cstdint>
#include <vector>

namespace UIKit {

class Control;
class ScreenCtrl;

class UIKIT_API IDashboard : public FrameCtrl {
public:
    explicit IDashboard(const wxRect& bounds);

    // Shows the named screen in the placeholder with the given animation.
    virtual bool ShowScreen(const TString<wchar_t>& name, Animation animation, int argument1, int argument2) = 0;
    // A list delegate flushed or rolled back its pending changes.
    virtual void OnPendingChanges(const TString<wchar_t>& key, int32_t value) = 0;
    // Shows a title for the current screen.
    virtual void SetScreenTitle(const TString<wchar_t>& title) = 0;
    // Tells the user that work is going on (or no longer).
    virtual void SetBusy(bool busy) = 0;
    // Hides the window to the background (minimise, or to a tray icon).
    virtual void Reduce() = 0;
    // Brings the window forward and gives it the focus.
    virtual void BringToFront() = 0;
    // Starts a program without a shell: argv[0] is the program, each further
    // element one argument. Must not touch windows (called off the GUI thread).
    virtual bool RunCommand(const std::vector<TString<wchar_t>>& argv) = 0;
    // The user chose another language: labels are to be read again.
    virtual void OnCultureChanged() = 0;
    // Called at the start of every screen transition.
    virtual void OnBeforeTransition() = 0;
    // The device connection changed (device found, lost or updated).
    virtual void OnDeviceStateChanged() = 0;

    // Whether the closing signal is set. Both signals reset themselves when
    // a wait sees them, so this answers true once per signal.
    bool IsClosing();
    // Dispatches GUI events while the waiting signal is set (checked every
    // 20 ms) and the closing signal is not; returns whether closing was seen.
    bool WaitAndDispatch();

    // The application's main window, set by whoever creates it; null while
    // there is none. Lower layers (lists, navigation) reach the dashboard
    // here; App::m_pDashboard names the same pointer for the host.
    static IDashboard* s_pCurrent;

    Control* GetControlPlaceholder() const { return m_pControlPlaceholder; }
    ScreenCtrl* GetCurrentRunningScreen() const { return m_pCurrentRunningScreen; }

    const Toolkit::smart_ptr<Toolkit::EventObject>& GetClosingEvent() const { return m_closingEvent; }
    const Toolkit::smart_ptr<Toolkit::EventObject>& GetWaitingEvent() const { return m_waitingEvent; }

protected:
    Toolkit::smart_ptr<Toolkit::EventObject> m_closingEvent;
    Toolkit::smart_ptr<Toolkit::EventObject> m_waitingEvent;
    Control* m_pControlPlaceholder = nullptr;
    ScreenCtrl* m_pCurrentRunningScreen = nullptr;
};

} // namespace UIKit

#pragma once
#include "module/Export.h"
// One notification window: a shaped frame that stays on top without a
// task-bar entry, shows a message or a custom content panel, may offer an
// action button leading into a sequence, closes itself after a time unless
// the mouse is over it, and glides to a new slot when popups below it go.
// Created, placed and removed by the popup manager; GUI thread only.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "frames/FrameCtrl.h"
#include "lists/IDelegate.h"
#include "navigation/IStateParameter.h"

#include <wx/timer.h>

namespace UIKit {

class UIKIT_API WinNotifPopup : public FrameCtrl {
public:
    static constexpr int ID_TIMER_MAIN = 6000;
    static constexpr int ID_TIMER_CLOSE = 6001;
    // Period of the main timer while an animation runs.
    static constexpr int c_tickMs = 100;

    enum AnimationState { Idle = 0, Moving = 1, Ejecting = 3 };

    // Starts the close timer when the auto-close time (ms) is above 0.
    WinNotifPopup(const wxRect& bounds, int autoCloseMs);
    ~WinNotifPopup() override;

    // The label of the "LabelTxt" child.
    void SetMessage(const TString<wchar_t>& message);
    // Keeps the action; the "ActionButton" child shows the label only when
    // the action names both a sequence and a state.
    void SetAction(const TString<wchar_t>& label, const TString<wchar_t>& sequence, const TString<wchar_t>& state,
                   Toolkit::smart_ptr<IStateParameter> parameter, bool flag);
    // Fills the "ContentPanel" child with the named template, steered by the
    // delegate; nothing for an empty name.
    void SetCustomDescriptor(const TString<wchar_t>& templateName, Toolkit::smart_ptr<IDelegate> delegate);

    // Places the window at its slot at once.
    void StartFadeAnimation(int x, int y);
    // Glides to the slot, one step per tick.
    void StartMoveAnimation(int x, int y);
    // Both only record the slot while the popup is ejecting: it does not move.
    // Slides below the display's bottom edge, faster and faster, ignoring
    // moves meanwhile; then the window asks to be removed, which lets the
    // popups above it take its slot.
    void StartEjectAnimation();
    // Stops the animation and closes the window.
    void StartEjectFadeAnimation();

    void OnCloseFrame(wxCommandEvent& event) override;
    void OnClose(wxCloseEvent& event) override;
    void OnTimer(wxTimerEvent& event);
    void OnTimerClose(wxTimerEvent& event);
    void OnMouseMove(wxMouseEvent& event);
    void OnOK(wxCommandEvent& event);

    // The step towards a target `remaining` pixels away (sign kept): a
    // third of the rest while more than 4 pixels remain, else one pixel.
    static int MoveStep(int remaining);
    // The step of an ejection that has gone `travelled` pixels so far.
    static int EjectStep(int travelled);

    int GetTargetX() const { return m_targetX; }
    int GetTargetY() const { return m_targetY; }
    int GetAnimationState() const { return m_animation; }
    int GetAutoCloseTime() const { return m_autoCloseMs; }
    wxTimer& GetMainTimer() { return m_mainTimer; }
    wxTimer& GetCloseTimer() { return m_closeTimer; }

private:
    void tickMove();
    void tickEject();
    // Asks the manager to remove this popup, which moves the others and
    // closes this one; a popup the manager does not list just closes.
    void requestRemoval();
    void runAction();

    wxTimer m_closeTimer;
    wxTimer m_mainTimer;
    int m_autoCloseMs;
    int m_animation = Idle;
    int m_targetX;
    int m_targetY;
    int m_alpha = 255;
    bool m_actionFlag = false;
    TString<wchar_t> m_actionSequence;
    TString<wchar_t> m_actionState;
    Toolkit::smart_ptr<IStateParameter> m_actionParameter;
    Toolkit::smart_ptr<IDelegate> m_delegate;
    // Where the ejection started (to grow its steps) and where it ends,
    // below the display. The slot stays the target the manager stacks by.
    int m_ejectStartY = 0;
    int m_ejectTargetY = 0;
    // Set once the window is on its way out, so closing runs once.
    bool m_closing = false;

    void onMouseMove(wxMouseEvent& e) { OnMouseMove(e); }

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit

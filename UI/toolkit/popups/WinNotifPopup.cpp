#include "popups/WinNotifPopup.h"

#include "controls/ButtonCtrl.h"
#include "controls/PanelCtrl.h"
#include "controls/StaticTextCtrl.h"
#include "factory/ControlIds.h"
#include "factory/CtrlFactory.h"
#include "frames/IDashboard.h"
#include "navigation/Sequence.h"
#include "navigation/SequenceManager.h"
#include "popups/NotifPopupManager.h"
#include "popups/PopupState.h"
#include "util/Util.h"

#include <wx/display.h>

#include <algorithm>
#include <cstdlib>

namespace UIKit {

wxBEGIN_EVENT_TABLE(WinNotifPopup, FrameCtrl)
    EVT_TIMER(WinNotifPopup::ID_TIMER_MAIN, WinNotifPopup::OnTimer)
    EVT_TIMER(WinNotifPopup::ID_TIMER_CLOSE, WinNotifPopup::OnTimerClose)
    EVT_MOTION(WinNotifPopup::onMouseMove)
    EVT_BUTTON(ID_OK, WinNotifPopup::OnOK)
wxEND_EVENT_TABLE()

namespace {

// Simple border, stay on top, shaped, tool window, no task-bar entry.
constexpr long c_style = wxSIMPLE_BORDER | wxSTAY_ON_TOP | wxFRAME_SHAPED | wxFRAME_TOOL_WINDOW | wxFRAME_NO_TASKBAR;

template <class T>
T* child(wxWindow* popup, const wchar_t* name)
{
    return Util::FindControl<T>(popup, name, true);
}

} // namespace

WinNotifPopup::WinNotifPopup(const wxRect& bounds, int autoCloseMs)
    : FrameCtrl(nullptr, TString<wchar_t>(), wxID_ANY, bounds, c_style),
      m_closeTimer(this, ID_TIMER_CLOSE),
      m_mainTimer(this, ID_TIMER_MAIN),
      m_autoCloseMs(autoCloseMs),
      m_targetX(bounds.x),
      m_targetY(bounds.y)
{
    if (m_autoCloseMs > 0)
        m_closeTimer.StartOnce(m_autoCloseMs);
}

WinNotifPopup::~WinNotifPopup()
{
    m_mainTimer.Stop();
    m_closeTimer.Stop();
    // A popup destroyed by someone else (the application at exit) must not
    // stay listed.
    if (auto manager = NotifPopupManager::Instance())
        manager->Forget(this);
}

void WinNotifPopup::SetMessage(const TString<wchar_t>& message)
{
    if (auto* label = child<StaticTextCtrl>(this, L"LabelTxt"))
        label->SetControlLabel(message);
}

void WinNotifPopup::SetAction(const TString<wchar_t>& label, const TString<wchar_t>& sequence,
                              const TString<wchar_t>& state, Toolkit::smart_ptr<IStateParameter> parameter, bool flag)
{
    m_actionFlag = flag;
    m_actionSequence = sequence;
    m_actionState = state;
    m_actionParameter = std::move(parameter);
    auto* button = child<ButtonCtrl>(this, L"ActionButton");
    if (!button)
        return;
    const bool hasAction = !sequence.empty() && !state.empty();
    if (hasAction)
        button->SetControlLabel(label);
    button->Show(hasAction);
}

void WinNotifPopup::SetCustomDescriptor(const TString<wchar_t>& templateName, Toolkit::smart_ptr<IDelegate> delegate)
{
    auto* content = child<PanelCtrl>(this, L"ContentPanel");
    auto factory = CtrlFactory::Instance();
    if (!content || !factory || templateName.empty())
        return;
    content->DestroyChildren();
    PanelCtrl* panel = factory->CreateControl<PanelCtrl>(templateName, content, -1);
    if (panel)
        panel->SetDelegate(delegate.get());
    m_delegate = std::move(delegate);
    // The content takes the message's place.
    if (auto* label = child<StaticTextCtrl>(this, L"LabelTxt"); label && panel)
        label->Hide();
}

void WinNotifPopup::StartFadeAnimation(int x, int y)
{
    m_targetX = x;
    m_targetY = y;
    if (m_animation != Ejecting)
        Move(x, y);
}

void WinNotifPopup::StartMoveAnimation(int x, int y)
{
    // An ejecting popup keeps sliding out; it only takes note of its new
    // slot, which the popups above it move into once it is gone.
    m_targetX = x;
    m_targetY = y;
    if (m_animation == Ejecting)
        return;
    m_animation = Moving;
    m_mainTimer.Start(c_tickMs);
}

void WinNotifPopup::StartEjectAnimation()
{
    if (wxDisplay::GetCount() == 0)
        return;
    m_animation = Ejecting;
    m_ejectStartY = GetPosition().y;
    m_ejectTargetY = wxDisplay(0u).GetGeometry().GetBottom() + 1;
    m_mainTimer.Start(c_tickMs);
}

void WinNotifPopup::StartEjectFadeAnimation()
{
    m_mainTimer.Stop();
    m_closeTimer.Stop();
    if (m_closing)
        return;
    m_closing = true;
    Close();
}

int WinNotifPopup::MoveStep(int remaining)
{
    const int distance = std::abs(remaining);
    const int step = distance > 4 ? distance / 3 : std::min(distance, 1);
    return remaining < 0 ? -step : step;
}

int WinNotifPopup::EjectStep(int travelled)
{
    return travelled < 10 ? 10 : travelled / 2;
}

void WinNotifPopup::OnTimer(wxTimerEvent&)
{
    if (m_animation == Moving)
        tickMove();
    else if (m_animation == Ejecting)
        tickEject();
    else
        m_mainTimer.Stop();
}

void WinNotifPopup::tickMove()
{
    if (m_alpha < 255) {
        m_alpha = 255;
        SetTransparent(wxByte(m_alpha));
    }
    const wxPoint at = GetPosition();
    if (at.y == m_targetY) {
        m_animation = Idle;
        m_mainTimer.Stop();
        return;
    }
    Move(at.x + MoveStep(m_targetX - at.x), at.y + MoveStep(m_targetY - at.y));
}

void WinNotifPopup::tickEject()
{
    const wxPoint at = GetPosition();
    if (at.y >= m_ejectTargetY) {
        m_animation = Idle;
        requestRemoval();
        return;
    }
    Move(at.x, std::min(at.y + EjectStep(at.y - m_ejectStartY), m_ejectTargetY));
}

void WinNotifPopup::OnTimerClose(wxTimerEvent&)
{
    requestRemoval();
}

void WinNotifPopup::OnCloseFrame(wxCommandEvent&)
{
    requestRemoval();
}

void WinNotifPopup::OnClose(wxCloseEvent& event)
{
    // Closed from outside (the window manager): leave the stack first.
    if (!m_closing) {
        m_closing = true;
        requestRemoval();
    }
    FrameCtrl::OnClose(event);
}

void WinNotifPopup::OnMouseMove(wxMouseEvent& event)
{
    // A popup under the mouse is being read: its time starts again.
    if (m_autoCloseMs > 0 && m_closeTimer.IsRunning())
        m_closeTimer.StartOnce(m_autoCloseMs);
    event.Skip();
}

void WinNotifPopup::OnOK(wxCommandEvent&)
{
    if (!m_actionSequence.empty() && !m_actionState.empty())
        runAction();
    requestRemoval();
}

void WinNotifPopup::runAction()
{
    auto sequences = SequenceManager::Instance();
    if (!sequences)
        return;
    auto current = sequences->GetCurrentSequence();
    const bool alreadyThere = current && current->GetName().equalsNoCase(m_actionSequence);
    if (alreadyThere && m_actionFlag)
        return;
    // Passing through the popup state makes the action's state start afresh.
    if (alreadyThere)
        sequences->DoTransition(PopupState::c_strSequence, PopupState::c_strState, {});
    if (IDashboard::s_pCurrent)
        IDashboard::s_pCurrent->BringToFront();
    // Sequences are named exactly on the stack: a name that matched the
    // current one apart from case goes back to that sequence, not a new one.
    sequences->DoTransition(alreadyThere ? current->GetName() : m_actionSequence, m_actionState, m_actionParameter);
}

void WinNotifPopup::requestRemoval()
{
    if (auto manager = NotifPopupManager::Instance())
        manager->RemoveWindow(this);
    // A popup the manager does not list closes on its own.
    StartEjectFadeAnimation();
}

} // namespace UIKit

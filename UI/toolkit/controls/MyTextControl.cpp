#include "controls/MyTextControl.h"

#include "controls/EditTextCtrl.h"

namespace UIKit {

wxBEGIN_EVENT_TABLE(MyTextControl, wxTextCtrl)
    EVT_KILL_FOCUS(MyTextControl::OnKillFocus)
    EVT_SET_FOCUS(MyTextControl::OnSetFocus)
    EVT_CHAR(MyTextControl::OnChar)
wxEND_EVENT_TABLE()

MyTextControl::MyTextControl(EditTextCtrl& owner, int id, const wxRect& area, long style)
    : wxTextCtrl(&owner, id, wxEmptyString, area.GetPosition(), area.GetSize(), style, wxDefaultValidator,
                 wxTextCtrlNameStr),
      m_owner(owner)
{
    static const wxCursor beam(wxCURSOR_IBEAM);
    SetCursor(beam);
}

void MyTextControl::OnSetFocus(wxFocusEvent& event)
{
    wxCommandEvent notice(EditTextCtrl::EVT_EDIT_TEXT_SET_FOCUS, -1);
    m_owner.GetEventHandler()->AddPendingEvent(notice);
    event.Skip();
}

void MyTextControl::OnKillFocus(wxFocusEvent& event)
{
    wxCommandEvent notice(EditTextCtrl::EVT_EDIT_TEXT_KILL_FOCUS, -1);
    m_owner.GetEventHandler()->AddPendingEvent(notice);
    event.Skip();
}

void MyTextControl::OnChar(wxKeyEvent& event)
{
    m_owner.GetEventHandler()->AddPendingEvent(event);
    const int code = event.GetKeyCode();
    const bool plainReturn = (code == WXK_RETURN || code == WXK_NUMPAD_ENTER) && !event.ControlDown();
    if (code != WXK_TAB && !plainReturn)
        event.Skip();
}

} // namespace UIKit

#include "lists/CheckedListItemCtrl.h"

#include "controls/StatesBoxCtrl.h"
#include "factory/ControlIds.h"
#include "util/Util.h"

namespace UIKit {

const wxEventType CheckedListItemCtrl::EVT_CHECKBOX_STATUS_CHANGED = wxNewEventType();

wxBEGIN_EVENT_TABLE(CheckedListItemCtrl, ListItemCtrl)
    EVT_CHECKBOX(ID_CHECKBOX, CheckedListItemCtrl::OnSetState)
wxEND_EVENT_TABLE()

CheckedListItemCtrl::CheckedListItemCtrl(wxWindow* parent, int id, const wxRect& bounds)
    : ListItemCtrl(parent, id, bounds)
{
}

bool CheckedListItemCtrl::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    m_statesBox = nullptr;
    m_progress = nullptr;
    return ListItemCtrl::LoadDescriptor(descriptor);
}

StatesBoxCtrl* CheckedListItemCtrl::GetStatesBox()
{
    if (!m_statesBox)
        m_statesBox = Util::FindControl<StatesBoxCtrl>(this, L"StatesBox", true);
    return m_statesBox;
}

Control* CheckedListItemCtrl::GetWorkingProgress()
{
    if (!m_progress) {
        m_progress = Util::FindControl<Control>(this, L"WorkingProgress", true);
        // Shown only while the row works, whatever the skin says.
        if (m_progress)
            m_progress->Show(m_state == Working);
    }
    return m_progress;
}

void CheckedListItemCtrl::SetState(CheckState state)
{
    if (state == m_state)
        return;
    m_state = state;
    if (StatesBoxCtrl* box = GetStatesBox()) {
        box->m_state = state == Checked ? StatesBoxCtrl::Active
                       : state == Working ? StatesBoxCtrl::Unknown
                                          : StatesBoxCtrl::Inactive;
        box->RefreshUpdate(false);
    }
    if (Control* progress = GetWorkingProgress())
        progress->Show(state == Working);
    wxCommandEvent changed(EVT_CHECKBOX_STATUS_CHANGED, GetId());
    changed.SetEventObject(this);
    changed.SetInt(state);
    if (wxWindow* parent = GetParent())
        parent->GetEventHandler()->AddPendingEvent(changed);
    RefreshUpdate(true);
}

void CheckedListItemCtrl::OnSetState(wxCommandEvent&)
{
    wxMouseEvent release(wxEVT_LEFT_UP);
    ButtonCtrl::OnLeftUp(release);
}

} // namespace UIKit

#pragma once
#include "module/Export.h"
// A row with a tri-state check box: the child states box "StatesBox" shows
// the state and the child "WorkingProgress" is shown while the row works.
// The parent learns every change through EVT_CHECKBOX_STATUS_CHANGED.
#include "lists/ListItemCtrl.h"

namespace UIKit {

class StatesBoxCtrl;

class UIKIT_API CheckedListItemCtrl : public ListItemCtrl {
public:
    // 1 checked, 3 working; the other values are the host's and show unchecked.
    enum CheckState { Unchecked = 0, Checked = 1, Undefined = 2, Working = 3 };
    static const wxEventType EVT_CHECKBOX_STATUS_CHANGED;

    CheckedListItemCtrl(wxWindow* parent, int id, const wxRect& bounds);

    // Posts EVT_CHECKBOX_STATUS_CHANGED (id: the item's, integer: the state)
    // when the state changes.
    void SetState(CheckState state);
    CheckState GetState() const { return m_state; }
    // A click on the check box counts as a click on the row.
    void OnSetState(wxCommandEvent& event);

    bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor) override;

    // The children, found once the factory has built them.
    StatesBoxCtrl* GetStatesBox();
    Control* GetWorkingProgress();

private:
    CheckState m_state = Unchecked;
    StatesBoxCtrl* m_statesBox = nullptr;
    Control* m_progress = nullptr;

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit

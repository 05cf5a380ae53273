#pragma once
#include "module/Export.h"
// The native text box inside an edit control. It reports focus changes and
// keys to its owner, and never inserts Tab or a plain Return.
#include <wx/textctrl.h>

namespace UIKit {

class EditTextCtrl;

class UIKIT_API MyTextControl : public wxTextCtrl {
public:
    // Placed at `area` of the owner.
    MyTextControl(EditTextCtrl& owner, int id, const wxRect& area, long style);

    void OnKillFocus(wxFocusEvent& event);
    void OnSetFocus(wxFocusEvent& event);
    void OnChar(wxKeyEvent& event);

private:
    EditTextCtrl& m_owner;

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit

#pragma once
#include "module/Export.h"
// A spin box: a text box holding a signed 64-bit number with buttons that
// step it within a range. Typed text that is not a number is put back at
// once. Every change of the value is posted to the control itself as
// EVT_VALUE_CHANGED.
#include "controls/PanelCtrl.h"

#include <climits>

namespace UIKit {

class ButtonCtrl;
class EditTextCtrl;

class UIKIT_API NumericUpDownCtrl : public PanelCtrl {
public:
    static const wxEventType EVT_VALUE_CHANGED;

    NumericUpDownCtrl(wxWindow* parent, int id, const wxRect& bounds);

    // True when the children "Down", "Up" (buttons) and "Value" (an edit
    // box) exist. The factory builds children after loading, so they are
    // looked up again at every update until found.
    bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor) override;
    void SetValue(long long value);
    // Applied at the next update; the pair is taken as given.
    void SetRange(long long minimum, long long maximum);
    // 0 is taken as 1.
    void SetStep(unsigned long long step) { m_step = step ? step : 1; }
    bool Show(bool show = true) override;
    // The up and down buttons: one step, taking a typed number first.
    void OnEvent(wxCommandEvent& event);
    void OnTextChange(wxCommandEvent& event);
    void OnEditTextKillFocus(wxCommandEvent& event);
    // Clamps the value, updates the buttons and the text, and posts the
    // change when `notify` (or when clamping moved the value).
    void UpdateUpDown(bool notify);

    long long GetValue() const { return m_value; }
    unsigned long long GetStep() const { return m_step; }

private:
    bool findChildren();
    // The text box's number when it holds one.
    bool readText(long long& value) const;
    void showValue();

    long long m_value = 0;
    long long m_minimum = LLONG_MIN;
    long long m_maximum = LLONG_MAX;
    unsigned long long m_step = 1;
    ButtonCtrl* m_down = nullptr;
    ButtonCtrl* m_up = nullptr;
    EditTextCtrl* m_text = nullptr;

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit

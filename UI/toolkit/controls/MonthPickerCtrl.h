#pragma once
#include "module/Export.h"
// Shows a month and its year ("March, 2009") with buttons that step one
// month earlier or later, kept within an optional range. Every change of the
// month is posted to the picker itself as EVT_MONTH_CHANGED.
#include "Toolkit/DateTime.h"
#include "controls/PanelCtrl.h"

namespace UIKit {

class UIKIT_API MonthPickerCtrl : public PanelCtrl {
public:
    static const wxEventType EVT_MONTH_CHANGED;

    MonthPickerCtrl(wxWindow* parent, int id, const wxRect& bounds);

    bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor) override;
    void SetDate(const Toolkit::DateTime& date);
    // Each limit is taken as the first day of its month; null means none.
    void SetRange(Toolkit::smart_ptr<Toolkit::DateTime> minimum, Toolkit::smart_ptr<Toolkit::DateTime> maximum);
    void SetUpEnabled(bool enable);
    void SetDownEnabled(bool enable);
    bool Show(bool show = true) override;
    // The up and down buttons: one month later or earlier.
    void OnEvent(wxCommandEvent& event);
    // Pulls the date into the range, updates the buttons and the text, and
    // posts the change when `notify` (or when the date had to move).
    void UpdatePicker(bool notify);

    const Toolkit::DateTime& GetDate() const { return *m_date; }
    // The text shown, e.g. "March, 2009".
    TString<wchar_t> GetText() const;

private:
    Toolkit::smart_ptr<Toolkit::DateTime> m_date;
    Toolkit::smart_ptr<Toolkit::DateTime> m_minimum;
    Toolkit::smart_ptr<Toolkit::DateTime> m_maximum;

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit

#include "controls/MonthPickerCtrl.h"

#include "factory/ControlIds.h"
#include "util/Util.h"
#include "xml/IResourceProvider.h"

#include <wx/log.h>

#include <string>

namespace UIKit {

const wxEventType MonthPickerCtrl::EVT_MONTH_CHANGED = wxNewEventType();

namespace {

// String-table keys of the full month names, by month number.
const char* const c_monthKeys[] = {"",           "LB_MONTH_F1", "LB_MONTH_F2",  "LB_MONTH_F3", "LB_MONTH_F4",
                                   "LB_MONTH_F5", "LB_MONTH_F6", "LB_MONTH_F7", "LB_MONTH_F8", "LB_MONTH_F9",
                                   "LB_MONTH_F10", "LB_MONTH_F11", "LB_MONTH_F12"};

Toolkit::smart_ptr<Toolkit::DateTime> firstOfMonth(const Toolkit::smart_ptr<Toolkit::DateTime>& date)
{
    if (!date)
        return {};
    return Toolkit::make_smart<Toolkit::DateTime>(date->GetYear(), date->GetMonth(), 1, 0, 0, 0);
}

bool sameLimit(const Toolkit::smart_ptr<Toolkit::DateTime>& a, const Toolkit::smart_ptr<Toolkit::DateTime>& b)
{
    return (!a && !b) || (a && b && *a == *b);
}

} // namespace

wxBEGIN_EVENT_TABLE(MonthPickerCtrl, PanelCtrl)
    EVT_BUTTON(ID_DOWN, MonthPickerCtrl::OnEvent)
    EVT_BUTTON(ID_UP, MonthPickerCtrl::OnEvent)
wxEND_EVENT_TABLE()

MonthPickerCtrl::MonthPickerCtrl(wxWindow* parent, int id, const wxRect& bounds)
    : PanelCtrl(parent, id, bounds, wxNO_BORDER), m_date(Toolkit::make_smart<Toolkit::DateTime>())
{
}

bool MonthPickerCtrl::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    const bool loaded = PanelCtrl::LoadDescriptor(descriptor);
    // The label and buttons are built after loading: fill them in from the
    // event loop, once they exist.
    CallAfter([this] { UpdatePicker(false); });
    return loaded;
}

void MonthPickerCtrl::SetDate(const Toolkit::DateTime& date)
{
    if (date == *m_date)
        return;
    *m_date = date;
    UpdatePicker(true);
}

void MonthPickerCtrl::SetRange(Toolkit::smart_ptr<Toolkit::DateTime> minimum,
                               Toolkit::smart_ptr<Toolkit::DateTime> maximum)
{
    minimum = firstOfMonth(minimum);
    maximum = firstOfMonth(maximum);
    if (sameLimit(minimum, m_minimum) && sameLimit(maximum, m_maximum))
        return;
    if (minimum && maximum && *maximum < *minimum)
        wxLogWarning("month range ends (%d-%02d) before it starts (%d-%02d); the end wins", maximum->GetYear(),
                     maximum->GetMonth(), minimum->GetYear(), minimum->GetMonth());
    m_minimum = minimum;
    m_maximum = maximum;
    UpdatePicker(false);
}

void MonthPickerCtrl::SetUpEnabled(bool enable)
{
    Util::EnableWindow(this, ID_UP, enable);
}

void MonthPickerCtrl::SetDownEnabled(bool enable)
{
    Util::EnableWindow(this, ID_DOWN, enable);
}

bool MonthPickerCtrl::Show(bool show)
{
    const bool result = wxWindow::Show(show);
    if (show)
        UpdatePicker(false);
    return result;
}

void MonthPickerCtrl::OnEvent(wxCommandEvent& event)
{
    if (event.GetId() == ID_UP)
        m_date->Add(0, 1, 0, 0);
    else if (event.GetId() == ID_DOWN)
        m_date->Remove(0, 1, 0, 0);
    else {
        event.Skip();
        return;
    }
    UpdatePicker(true);
}

void MonthPickerCtrl::UpdatePicker(bool notify)
{
    // With a range whose end is before its start, the later check wins and
    // the date sits on the end.
    if (m_minimum && *m_date < *m_minimum) {
        *m_date = *m_minimum;
        notify = true;
    }
    if (m_maximum && *m_date > *m_maximum) {
        *m_date = *m_maximum;
        notify = true;
    }
    Toolkit::DateTime earlier(*m_date), later(*m_date);
    SetDownEnabled(!m_minimum || earlier.Remove(0, 1, 0, 0) >= *m_minimum);
    SetUpEnabled(!m_maximum || later.Add(0, 1, 0, 0) <= *m_maximum);
    Util::SetWindowLabel(this, TString<wchar_t>(L"DateTimeLbl"), GetText());
    if (notify) {
        wxCommandEvent changed(EVT_MONTH_CHANGED, -1);
        changed.SetEventObject(this);
        AddPendingEvent(changed);
    }
}

TString<wchar_t> MonthPickerCtrl::GetText() const
{
    const TString<char> key(c_monthKeys[m_date->GetMonth()]);
    const TString<wchar_t> month = m_resources ? m_resources->GetAddStr(key) : TString<wchar_t>(L"");
    return TString<wchar_t>(std::wstring(month.c_str()) + L", " + std::to_wstring(m_date->GetYear()));
}

} // namespace UIKit

#include "controls/NumericUpDownCtrl.h"

#include "Toolkit/RegExp.h"
#include "controls/ButtonCtrl.h"
#include "controls/EditTextCtrl.h"
#include "factory/ControlIds.h"

#include <wx/log.h>
#include <wx/textctrl.h>

#include <cerrno>
#include <cwchar>
#include <string>

namespace UIKit {

const wxEventType NumericUpDownCtrl::EVT_VALUE_CHANGED = wxNewEventType();

wxBEGIN_EVENT_TABLE(NumericUpDownCtrl, PanelCtrl)
    EVT_BUTTON(wxID_ANY, NumericUpDownCtrl::OnEvent)
    EVT_COMMAND(wxID_ANY, EditTextCtrl::EVT_EDIT_TEXT_KILL_FOCUS, NumericUpDownCtrl::OnEditTextKillFocus)
    EVT_TEXT(wxID_ANY, NumericUpDownCtrl::OnTextChange)
wxEND_EVENT_TABLE()

NumericUpDownCtrl::NumericUpDownCtrl(wxWindow* parent, int id, const wxRect& bounds)
    : PanelCtrl(parent, id, bounds, wxNO_BORDER)
{
}

bool NumericUpDownCtrl::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    if (!PanelCtrl::LoadDescriptor(descriptor))
        return false;
    // Children built after loading get the value from the event loop.
    CallAfter([this] { UpdateUpDown(false); });
    return findChildren();
}

bool NumericUpDownCtrl::findChildren()
{
    if (m_down && m_up && m_text)
        return true;
    m_down = dynamic_cast<ButtonCtrl*>(FindWindowByName("Down", this));
    m_up = dynamic_cast<ButtonCtrl*>(FindWindowByName("Up", this));
    m_text = dynamic_cast<EditTextCtrl*>(FindWindowByName("Value", this));
    return m_down && m_up && m_text;
}

void NumericUpDownCtrl::SetValue(long long value)
{
    if (value == m_value)
        return;
    m_value = value;
    UpdateUpDown(true);
}

void NumericUpDownCtrl::SetRange(long long minimum, long long maximum)
{
    if (minimum == m_minimum && maximum == m_maximum)
        return;
    m_minimum = minimum;
    m_maximum = maximum;
    UpdateUpDown(false);
}

bool NumericUpDownCtrl::Show(bool show)
{
    if (show && !findChildren())
        wxLogError("numeric up-down %d lacks its \"Down\", \"Up\" or \"Value\" child", GetId());
    UpdateUpDown(false);
    return wxWindow::Show(show);
}

void NumericUpDownCtrl::OnEvent(wxCommandEvent& event)
{
    if (event.GetId() != ID_UP && event.GetId() != ID_DOWN) {
        event.Skip();
        return;
    }
    wxCommandEvent none;
    OnEditTextKillFocus(none);
    // Unsigned arithmetic: a step past the 64-bit ends wraps instead of
    // being undefined, and the update then clamps what it can.
    const unsigned long long value = static_cast<unsigned long long>(m_value);
    m_value = static_cast<long long>(event.GetId() == ID_UP ? value + m_step : value - m_step);
    UpdateUpDown(true);
}

bool NumericUpDownCtrl::readText(long long& value) const
{
    if (!m_text)
        return false;
    const TString<wchar_t> text = m_text->GetControlLabel();
    static const Toolkit::RegExp number(L"-?[\\d]+");
    if (!number.IsMatch(text))
        return false;
    errno = 0;
    wchar_t* end = nullptr;
    const long long read = std::wcstoll(text.c_str(), &end, 10);
    if (errno == ERANGE) {
        // Too many digits for 64 bits: the nearest end of the range.
        wxLogWarning("\"%s\" does not fit in 64 bits; taken as %lld", wxString(text), read);
    }
    value = read;
    return true;
}

void NumericUpDownCtrl::showValue()
{
    if (m_text)
        m_text->SetControlLabel(TString<wchar_t>(std::to_wstring(m_value)));
}

void NumericUpDownCtrl::OnTextChange(wxCommandEvent& event)
{
    if (m_text) {
        long long typed = 0;
        if (!readText(typed)) {
            showValue();
        } else if (typed != m_value) {
            m_value = typed;
            UpdateUpDown(true);
        }
    }
    event.Skip();
}

void NumericUpDownCtrl::OnEditTextKillFocus(wxCommandEvent& event)
{
    long long typed = m_value;
    const bool read = readText(typed);
    const bool changed = read && typed != m_value;
    m_value = typed;
    UpdateUpDown(changed);
    event.Skip();
}

void NumericUpDownCtrl::UpdateUpDown(bool notify)
{
    findChildren();
    if (m_value < m_minimum) {
        m_value = m_minimum;
        notify = true;
    } else if (m_value > m_maximum) {
        m_value = m_maximum;
        notify = true;
    }
    if (m_down)
        m_down->Enable(m_value > m_minimum);
    if (m_up)
        m_up->Enable(m_value < m_maximum);
    // Only a text that differs is written, so the box's own update event
    // does not echo back here.
    if (m_text && m_text->GetControlLabel() != TString<wchar_t>(std::to_wstring(m_value)))
        showValue();
    if (notify) {
        wxCommandEvent changed(EVT_VALUE_CHANGED, -1);
        changed.SetEventObject(this);
        AddPendingEvent(changed);
    }
}

} // namespace UIKit

#include "controls/EditTextCtrl.h"

#include "controls/MyTextControl.h"

#include <algorithm>

namespace UIKit {

const wxEventType EditTextCtrl::EVT_EDIT_TEXT_SET_FOCUS = wxNewEventType();
const wxEventType EditTextCtrl::EVT_EDIT_TEXT_KILL_FOCUS = wxNewEventType();

namespace {

long alignmentStyle(int placement)
{
    const int horizontal = placement & (wxALIGN_CENTER_HORIZONTAL | wxALIGN_RIGHT);
    if (horizontal == wxALIGN_CENTER_HORIZONTAL)
        return wxTE_CENTRE;
    if (horizontal == wxALIGN_RIGHT)
        return wxTE_RIGHT;
    return wxTE_LEFT;
}

} // namespace

EditTextCtrl::EditTextCtrl(wxWindow* parent, int id, const wxRect& bounds) : PanelCtrl(parent, id, bounds, wxNO_BORDER)
{
    Bind(wxEventTypeTag<wxCommandEvent>(EVT_EDIT_TEXT_SET_FOCUS), &EditTextCtrl::onSetFocusNotice, this);
    Bind(wxEventTypeTag<wxCommandEvent>(EVT_EDIT_TEXT_KILL_FOCUS), &EditTextCtrl::onKillFocusNotice, this);
    Bind(wxEVT_CHAR, &EditTextCtrl::onChar, this);
}

bool EditTextCtrl::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    PanelCtrl::LoadDescriptor(descriptor);
    m_edit = descriptor.DynamicCast<EditTextCtrlDescriptor>();
    const auto& edit = m_edit;
    if (!edit)
        return true;
    m_multiline = edit->IsMultiline();
    m_readOnly = edit->IsReadOnly();
    long style = alignmentStyle(edit->GetPlacement());
    if (edit->IsPassword())
        style |= wxTE_PASSWORD;
    if (m_multiline)
        style |= wxTE_MULTILINE;
    if (m_readOnly)
        style |= wxTE_READONLY;
    if (!edit->HasBorder())
        style |= wxNO_BORDER;
    // The box is a child window: the control owns it from here on.
    m_textBox = new MyTextControl(*this, edit->GetId(), TextBoxArea(edit->GetBounds().GetSize(), *edit), style);
    m_font = edit->GetFont();
    if (m_font) {
        if (m_font->GetForeColour().IsOk())
            m_textBox->SetForegroundColour(m_font->GetForeColour());
        m_textBox->SetFont(m_font->GetFont());
    }
    m_textBox->Show();
    return true;
}

bool EditTextCtrl::Show(bool show)
{
    const bool result = wxWindow::Show(show);
    if (show && m_textBox)
        m_textBox->SetValue(wxEmptyString);
    return result;
}

wxRect EditTextCtrl::TextBoxArea(const wxSize& size, const EditTextCtrlDescriptor& edit)
{
    int left = 4, top = 4, right = 4, bottom = 4;
    if (edit.HasPadding()) {
        const wxRect& padding = edit.GetPadding();
        left = padding.x, top = padding.y, right = padding.width, bottom = padding.height;
    } else if (const auto& image = edit.GetNormalImage(); image && image->IsOk() && image->GetMargin() != wxRect()) {
        left = int(image->GetMarginLeft()), top = int(image->GetMarginTop());
        right = int(image->GetMarginRight()), bottom = int(image->GetMarginBottom());
    }
    return wxRect(left, top, std::max(1, size.x - left - right), std::max(1, size.y - top - bottom));
}

const TString<wchar_t>& EditTextCtrl::GetControlLabel() const
{
    // The label mirrors the box; the copy is kept so a reference can be given.
    auto& self = const_cast<EditTextCtrl&>(*this);
    self.m_label = m_textBox ? TString<wchar_t>(m_textBox->GetValue().ToStdWstring()) : TString<wchar_t>();
    return m_label;
}

void EditTextCtrl::SetControlLabel(const TString<wchar_t>& text)
{
    if (m_textBox)
        m_textBox->SetValue(wxString(text));
}

void EditTextCtrl::SetMaxChar(unsigned int count)
{
    if (m_textBox)
        m_textBox->SetMaxLength(count);
}

void EditTextCtrl::GetSelection(unsigned int& from, unsigned int& to) const
{
    long f = 0;
    long t = 0;
    if (m_textBox)
        m_textBox->GetSelection(&f, &t);
    from = unsigned(f);
    to = unsigned(t);
}

void EditTextCtrl::SetSelection(unsigned int from, unsigned int to)
{
    if (m_textBox)
        m_textBox->SetSelection(long(from), long(to));
}

long EditTextCtrl::GetInsertionPoint() const { return m_textBox ? m_textBox->GetInsertionPoint() : 0; }

void EditTextCtrl::SetInsertionPoint(long position)
{
    if (m_textBox)
        m_textBox->SetInsertionPoint(position);
}

bool EditTextCtrl::HasBeenModifiedByUser() const { return m_textBox && m_textBox->IsModified(); }

bool EditTextCtrl::AcceptsFocusFromKeyboard() const { return IsShown() && IsEnabled(); }

bool EditTextCtrl::AcceptsApplyDefaultFromKeyBoard() const { return IsShown() && IsEnabled() && !m_multiline; }

void EditTextCtrl::OnSetFocus(wxFocusEvent&)
{
    if (!m_textBox)
        return;
    m_textBox->SetSelection(-1, -1);
    m_textBox->SetFocus();
}

void EditTextCtrl::notifyParent(wxEventType type)
{
    if (wxWindow* parent = GetParent()) {
        wxCommandEvent notice(type, -1);
        notice.SetEventObject(this);
        parent->GetEventHandler()->AddPendingEvent(notice);
    }
}

void EditTextCtrl::OnEditTextSetFocus(wxCommandEvent&)
{
    wxFocusEvent focus(wxEVT_SET_FOCUS);
    Control::OnSetFocus(focus);
    notifyParent(EVT_EDIT_TEXT_SET_FOCUS);
}

void EditTextCtrl::OnEditTextKillFocus(wxCommandEvent&)
{
    wxFocusEvent focus(wxEVT_KILL_FOCUS);
    Control::OnKillFocus(focus);
    notifyParent(EVT_EDIT_TEXT_KILL_FOCUS);
}

void EditTextCtrl::OnChar(wxKeyEvent& event)
{
    PanelCtrl::OnKeyDown(event);
}

template <class Keep>
bool EditTextCtrl::filter(TString<wchar_t>& out, Keep keep)
{
    const TString<wchar_t> text = GetControlLabel();
    out.clear();
    for (const wchar_t c : text)
        if (keep(c))
            out += c;
    const long removed = long(text.size() - out.size());
    if (removed == 0)
        return false;
    unsigned int from = 0;
    unsigned int to = 0;
    GetSelection(from, to);
    SetControlLabel(out);
    // The caret stays after the characters the user kept typing.
    SetInsertionPoint(std::max(0L, long(from) - removed));
    return true;
}

bool EditTextCtrl::FilterDigits(TString<wchar_t>& out)
{
    return filter(out, [](wchar_t c) { return c >= L'0' && c <= L'9'; });
}

bool EditTextCtrl::FilterAlphaNumeric(TString<wchar_t>& out)
{
    return filter(out, [](wchar_t c) { return c >= 32 && c <= 255; });
}

} // namespace UIKit

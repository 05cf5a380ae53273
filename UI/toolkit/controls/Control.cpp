#include "controls/Control.h"


namespace UIKit {

// Handlers forward to the virtual operations so subclasses override them
// without new table entries.
wxBEGIN_EVENT_TABLE(Control, wxWindow)
    EVT_ENTER_WINDOW(Control::onEnter)
    EVT_LEAVE_WINDOW(Control::onLeave)
    EVT_SIZE(Control::onSize)
    EVT_SET_FOCUS(Control::onSetFocus)
    EVT_KILL_FOCUS(Control::onKillFocus)
wxEND_EVENT_TABLE()

Control::Control(wxWindow* parent, int id, const wxRect& bounds, long style)
    : wxWindow(parent, id, bounds.GetPosition(), bounds.GetSize(), style, wxEmptyString)
{
    if (auto* control = dynamic_cast<Control*>(parent))
        m_resources = control->m_resources;
    Raise();
}

bool Control::IsChildrenInside()
{
    for (wxWindow* child : GetChildren())
        if (auto* control = dynamic_cast<Control*>(child))
            if (control->IsInside() || control->IsChildrenInside())
                return true;
    return false;
}

Drawing::ContentAlignment Control::PositionToParent() const
{
    return m_descriptor ? m_descriptor->GetParentPosition() : Drawing::MiddleRight;
}

bool Control::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    m_descriptor = descriptor;
    SetName(wxString(descriptor->GetName()));
    if (descriptor->GetBackColour().IsOk())
        m_backgroundColour = descriptor->GetBackColour();
    m_loaded = true;
    Enable(descriptor->IsEnabled());
    return true;
}

void Control::Select(bool select)
{
    if (select == m_selected)
        return;
    m_selected = select;
    RefreshUpdate(true);
}

void Control::SetControlLabel(const TString<wchar_t>& label)
{
    if (label == m_label)
        return;
    m_label = label;
    RefreshUpdate(true);
}

unsigned int Control::GetWidth() const { return unsigned(GetSize().x); }
unsigned int Control::GetHeight() const { return unsigned(GetSize().y); }

void Control::SetWidth(unsigned int width)
{
    SetSize(-1, -1, int(width), GetSize().y, wxSIZE_USE_EXISTING);
}

void Control::SetHeight(unsigned int height)
{
    SetSize(-1, -1, GetSize().x, int(height), wxSIZE_USE_EXISTING);
}

void Control::SetControlSize(int x, int y, int width, int height)
{
    SetSize(x, y, width, height, wxSIZE_AUTO);
}

bool Control::Enable(bool enable)
{
    // The window's own flag: a child disabled inside a disabled container
    // stays disabled when the container is enabled again.
    if (IsThisEnabled() == enable)
        return false;
    const bool changed = wxWindow::Enable(enable);
    RefreshUpdate(true);
    return changed;
}

void Control::SetBackgroundColor(const wxColour& colour)
{
    m_backgroundColour = colour;
    RefreshUpdate(true);
}

void Control::ResetBackgroundColor()
{
    if (m_descriptor && m_descriptor->GetBackColour().IsOk())
        m_backgroundColour = m_descriptor->GetBackColour();
    else
        m_backgroundColour = wxColour(255, 255, 255, 0);
    RefreshUpdate(true);
}

void Control::OnEnterWindow(wxMouseEvent& event)
{
    if (!m_inside) {
        m_inside = true;
        RefreshUpdate(true);
    }
    // Entering a child also means entering every enclosing control.
    if (auto* parent = dynamic_cast<Control*>(GetParent()))
        parent->OnEnterWindow(event);
}

void Control::OnLeaveWindow(wxMouseEvent& event)
{
    if (m_inside) {
        m_inside = false;
        RefreshUpdate(true);
    }
    if (auto* parent = dynamic_cast<Control*>(GetParent()))
        parent->OnLeaveWindow(event);
}

void Control::OnSize(wxSizeEvent&)
{
    RefreshUpdate(true);
}

void Control::OnSetFocus(wxFocusEvent&)
{
    m_focused = true;
    RefreshUpdate(true);
}

void Control::OnKillFocus(wxFocusEvent&)
{
    m_focused = false;
    RefreshUpdate(true);
}

} // namespace UIKit

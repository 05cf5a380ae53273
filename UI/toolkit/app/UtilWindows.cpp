// Util: finding, showing, enabling and labelling controls.
#include "util/Util.h"

#include "controls/Control.h"

namespace UIKit {

Control* Util::FindControl(wxWindow* parent, int id)
{
    return dynamic_cast<Control*>(wxWindow::FindWindowById(id, parent));
}

Control* Util::RecursiveFindControl(wxWindow* parent, const TString<wchar_t>& name)
{
    if (!parent)
        return nullptr;
    const wxString wanted(name);
    for (wxWindow* child : parent->GetChildren()) {
        if (child->GetName() == wanted)
            if (auto* control = dynamic_cast<Control*>(child))
                return control;
        if (Control* found = RecursiveFindControl(child, name))
            return found;
    }
    return nullptr;
}

bool Util::IsWindowIsThisOrChildRecursive(const wxWindow* window, const wxWindow* candidate)
{
    for (const wxWindow* w = candidate; w; w = w->GetParent())
        if (w == window)
            return true;
    return false;
}

namespace {

bool showControl(Control* control, bool show, bool children)
{
    if (!control)
        return false;
    const bool result = control->Show(show);
    if (children)
        for (wxWindow* child : control->GetChildren())
            child->Show(show);
    return result;
}

bool setLabel(Control* control, const TString<wchar_t>& label)
{
    if (!control)
        return false;
    control->SetControlLabel(label);
    return true;
}

bool getLabel(Control* control, TString<wchar_t>& label)
{
    if (!control)
        return false;
    label = control->GetControlLabel();
    return true;
}

} // namespace

bool Util::ShowWindow(wxWindow* parent, int id, bool show, bool children)
{
    return showControl(FindControl(parent, id), show, children);
}

bool Util::ShowWindow(wxWindow* parent, const TString<wchar_t>& name, bool show, bool children)
{
    return showControl(RecursiveFindControl(parent, name), show, children);
}

bool Util::EnableWindow(wxWindow* parent, int id, bool enable)
{
    Control* control = FindControl(parent, id);
    return control && control->Enable(enable);
}

bool Util::EnableWindow(wxWindow* parent, const TString<wchar_t>& name, bool enable)
{
    Control* control = RecursiveFindControl(parent, name);
    return control && control->Enable(enable);
}

bool Util::GetWindowLabel(wxWindow* parent, int id, TString<wchar_t>& label)
{
    return getLabel(FindControl(parent, id), label);
}

bool Util::GetWindowLabel(wxWindow* parent, const TString<wchar_t>& name, TString<wchar_t>& label)
{
    return getLabel(RecursiveFindControl(parent, name), label);
}

bool Util::SetWindowLabel(wxWindow* parent, int id, const TString<wchar_t>& label)
{
    return setLabel(FindControl(parent, id), label);
}

bool Util::SetWindowLabel(wxWindow* parent, const TString<wchar_t>& name, const TString<wchar_t>& label)
{
    return setLabel(RecursiveFindControl(parent, name), label);
}

} // namespace UIKit

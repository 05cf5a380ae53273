#include "controls/VScrollCtrl.h"

#include "controls/ButtonCtrl.h"
#include "controls/VScrollBar.h"
#include "factory/ControlIds.h"

#include <algorithm>

namespace UIKit {

namespace {

// The direct child button with that id, or null.
ButtonCtrl* childButton(wxWindow* parent, int id)
{
    for (wxWindow* child : parent->GetChildren())
        if (child->GetId() == id)
            if (auto* button = dynamic_cast<ButtonCtrl*>(child))
                return button;
    return nullptr;
}

} // namespace

wxBEGIN_EVENT_TABLE(VScrollCtrl, PanelCtrl)
    EVT_BUTTON(ID_UP, VScrollCtrl::OnUp)
    EVT_BUTTON(ID_DOWN, VScrollCtrl::OnDown)
wxEND_EVENT_TABLE()

VScrollCtrl::VScrollCtrl(wxWindow* parent, int id, const wxRect& bounds) : PanelCtrl(parent, id, bounds, wxNO_BORDER) {}

bool VScrollCtrl::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    PanelCtrl::LoadDescriptor(descriptor);
    GetScrollBar();
    return true;
}

VScrollBar* VScrollCtrl::GetScrollBar()
{
    if (!m_scrollBar)
        m_scrollBar = dynamic_cast<VScrollBar*>(FindWindowByName("VScrollBar", this));
    return m_scrollBar;
}

void VScrollCtrl::OnUp(wxCommandEvent&)
{
    if (VScrollBar* bar = GetScrollBar())
        bar->OnUp();
}

void VScrollCtrl::OnDown(wxCommandEvent&)
{
    if (VScrollBar* bar = GetScrollBar())
        bar->OnDown();
}

void VScrollCtrl::OnMouseWheel(wxMouseEvent& event)
{
    VScrollBar* bar = GetScrollBar();
    if (!bar)
        return;
    // One step per notch, whatever the rotation's size.
    if (event.GetWheelRotation() > 0)
        bar->OnUp();
    else
        bar->OnDown();
}

void VScrollCtrl::OnSize(wxSizeEvent& event)
{
    PanelCtrl::OnSize(event);
    VScrollBar* bar = GetScrollBar();
    if (!bar)
        return;
    ButtonCtrl* up = childButton(this, ID_UP);
    ButtonCtrl* down = childButton(this, ID_DOWN);
    const int height = GetSize().y;
    const int buttons = (up ? up->GetSize().y : 0) + (down ? down->GetSize().y : 0);
    bar->SetHeight(unsigned(std::max(0, height - buttons)));
    // A down button under the bar stays at the bottom edge; one above it is
    // part of the skin's own arrangement and is left alone.
    if (down && down->GetPosition().y > bar->GetPosition().y)
        down->Move(0, height - down->GetSize().y);
}

} // namespace UIKit

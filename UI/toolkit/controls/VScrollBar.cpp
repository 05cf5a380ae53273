#include "controls/VScrollBar.h"

#include "controls/ImageCtrl.h"
#include "descriptors/VScrollBarDescriptor.h"

namespace UIKit {

wxBEGIN_EVENT_TABLE(VScrollBar, PanelCtrl)
    EVT_LEFT_DOWN(VScrollBar::onLeftDown)
    EVT_LEFT_UP(VScrollBar::onLeftUp)
    EVT_MOTION(VScrollBar::onMotion)
    EVT_MOUSE_CAPTURE_LOST(VScrollBar::onCaptureLost)
wxEND_EVENT_TABLE()

VScrollBar::VScrollBar(wxWindow* parent, int id, const wxRect& bounds) : PanelCtrl(parent, id, bounds, wxNO_BORDER) {}

bool VScrollBar::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    PanelCtrl::LoadDescriptor(descriptor);
    auto bar = descriptor.DynamicCast<VScrollBarDescriptor>();
    if (bar && bar->GetThumbImage() && bar->GetThumbImage()->IsOk())
        m_thumb = Toolkit::smart_ptr<ImageCtrl>(new ImageCtrl(bar->GetThumbImage(), descriptor->GetBounds().GetSize()));
    resetTrack();
    return true;
}

void VScrollBar::resetTrack()
{
    const int width = m_descriptor ? m_descriptor->GetBounds().width : GetSize().x;
    m_track = wxRect(0, 0, width, GetSize().y);
}

void VScrollBar::OnSize(wxSizeEvent& event)
{
    PanelCtrl::OnSize(event);
    // The thumb follows at the owner's next SetScroll.
    resetTrack();
}

void VScrollBar::DrawCustom(wxDC& dc)
{
    PanelCtrl::DrawCustom(dc);
    if (m_thumb)
        m_thumb->Draw(dc, wxPoint(0, int(m_thumbPosition)));
}

void VScrollBar::SetScroll(unsigned int total, unsigned int count, unsigned int visible)
{
    // The step is the first row height seen, so steps stay even as rows are
    // added later.
    if (m_step == 0 && count > 0)
        m_step = total / count;
    m_count = count;
    m_visible = visible;
    // An empty track cannot scale anything: the thumb then fills it.
    m_ratio = m_track.height > 0 ? double(total) / m_track.height : 0.0;
    const int thumbHeight = m_ratio > 0.0 ? int(visible / m_ratio) : m_track.height;
    m_thumbRect = wxRect(m_track.x, int(m_thumbPosition), m_track.width, thumbHeight);
    if (m_thumb)
        m_thumb->Resize(wxSize(m_track.width, thumbHeight));
    if (m_thumbPosition + thumbHeight >= double(GetHeight()))
        SetPos(double(GetHeight()) - thumbHeight);
}

void VScrollBar::SetPos(double position)
{
    if (position < 0.0)
        position = 0.0;
    // Compared before clamping, so a request past an end is still reported.
    if (position == m_thumbPosition)
        return;
    m_thumbPosition = position;
    AdjustThumbPosition();
    SendScrollChange(int(m_thumbPosition * m_ratio));
}

void VScrollBar::OnUp()
{
    if (m_ratio > 0.0)
        SetPos(m_thumbPosition - m_step / m_ratio);
}

void VScrollBar::OnDown()
{
    if (m_ratio > 0.0)
        SetPos(m_thumbPosition + m_step / m_ratio);
}

void VScrollBar::SetVScrollBarToBottom()
{
    SetPos(double(GetHeight()) + 1.0);
}

void VScrollBar::AdjustThumbPosition()
{
    const double lowest = double(m_track.y + m_track.height - m_thumbRect.height);
    if (m_thumbPosition < m_track.y)
        m_thumbPosition = m_track.y;
    else if (m_thumbPosition > lowest)
        m_thumbPosition = lowest;
}

void VScrollBar::SendScrollChange(int position)
{
    wxScrollEvent change(wxEVT_SCROLL_CHANGED, GetId(), position, 0);
    change.SetEventObject(this);
    GetEventHandler()->ProcessEvent(change);
}

void VScrollBar::OnLeftClick(wxMouseEvent& event)
{
    const int y = event.GetPosition().y;
    if (m_thumbRect.Contains(event.GetPosition()) && !HasCapture()) {
        m_dragOriginPosition = int(m_thumbPosition);
        m_dragOriginY = y;
        CaptureMouse();
        return;
    }
    // A click in the track jumps there, centring the thumb on the pointer.
    m_thumbPosition = y - m_thumbRect.height / 2;
    AdjustThumbPosition();
    SendScrollChange(int(m_thumbPosition * m_ratio));
}

void VScrollBar::OnMotion(wxMouseEvent& event)
{
    if (event.LeftIsDown())
        SetPos(double(m_dragOriginPosition + event.GetPosition().y - m_dragOriginY));
}

void VScrollBar::OnLeftRelease(wxMouseEvent&)
{
    if (HasCapture())
        ReleaseMouse();
}

} // namespace UIKit

#include "controls/AnimatedCtrl.h"

#include <wx/log.h>

namespace UIKit {

wxBEGIN_EVENT_TABLE(AnimatedCtrl, SkinnedControl)
    EVT_TIMER(wxID_ANY, AnimatedCtrl::onTimer)
wxEND_EVENT_TABLE()

AnimatedCtrl::AnimatedCtrl(wxWindow* parent, int id, const wxRect& bounds)
    : SkinnedControl(parent, id, bounds, wxNO_BORDER), m_timer(this)
{
    SetBackgroundStyle(wxBG_STYLE_CUSTOM);
}

AnimatedCtrl::~AnimatedCtrl()
{
    m_timer.Stop();
}

bool AnimatedCtrl::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    Control::LoadDescriptor(descriptor);
    m_animation = descriptor.DynamicCast<AnimatedCtrlDescriptor>();
    if (m_animation)
        m_strip.Load(m_animation->GetImages(), m_animation->GetFrameCount());
    return true;
}

void AnimatedCtrl::Start(unsigned int intervalMs)
{
    if (m_running)
        return;
    int interval = intervalMs ? int(intervalMs) : (m_animation ? m_animation->GetFrameDelay() : -1);
    if (interval <= 0) {
        // A timer of no delay would spin the event loop; run at a sensible pace instead.
        wxLogDebug("animation %d has no frame delay, using 100 ms", GetId());
        interval = 100;
    }
    m_timer.Start(interval, wxTIMER_CONTINUOUS);
    m_running = true;
}

void AnimatedCtrl::Stop()
{
    m_timer.Stop();
    m_running = false;
}

bool AnimatedCtrl::Show(bool show)
{
    const bool changed = wxWindow::Show(show);
    if (!show)
        Stop();
    else if (m_animation && m_animation->IsRunAtStartup())
        Start(0);
    return changed;
}

void AnimatedCtrl::Update(unsigned int frame)
{
    m_frame = frame;
    const unsigned int count = m_strip.GetFrameCount();
    if (m_frame >= count) {
        if (m_animation && m_animation->IsRepeat()) {
            m_frame = 0;
        } else {
            m_frame = count ? count - 1 : 0;
            Stop();
        }
    }
    RefreshUpdate(false);
}

void AnimatedCtrl::DrawCustom(wxDC& dc)
{
    m_strip.Draw(dc, GetSize(), m_frame);
}

} // namespace UIKit

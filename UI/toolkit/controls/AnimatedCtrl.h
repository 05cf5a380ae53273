#pragma once
#include "module/Export.h"
// An animation: a strip of frames as wide as the control, advanced one frame
// per timer tick. It either loops or stops on its last frame.
#include "controls/FrameStrip.h"
#include "controls/SkinnedControl.h"
#include "descriptors/AnimatedCtrlDescriptor.h"

#include <wx/timer.h>

namespace UIKit {

class UIKIT_API AnimatedCtrl : public SkinnedControl {
public:
    AnimatedCtrl(wxWindow* parent, int id, const wxRect& bounds);
    ~AnimatedCtrl() override;

    bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor) override;
    // Starts the timer at `intervalMs` (0: the description's frame delay)
    // unless it already runs.
    void Start(unsigned int intervalMs);
    void Stop();
    // Hiding stops; showing starts when the description asks to run at startup.
    bool Show(bool show = true) override;
    // Shows `frame`; past the last one it loops, or stays on the last and stops.
    void Update(unsigned int frame);
    using wxWindow::Update;
    // One timer tick: the next frame.
    void Tick() { Update(m_frame + 1); }
    void DrawCustom(wxDC& dc) override;

    unsigned int GetFrame() const { return m_frame; }
    bool IsRunning() const { return m_running; }

private:
    void onTimer(wxTimerEvent&) { Tick(); }

    Toolkit::smart_ptr<AnimatedCtrlDescriptor> m_animation;
    FrameStrip m_strip;
    unsigned int m_frame = 0;
    wxTimer m_timer;
    bool m_running = false;

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit

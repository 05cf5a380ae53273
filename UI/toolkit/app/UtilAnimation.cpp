// Util: short stepwise resize and slide animations, paced by the tick clock.
#include "util/Util.h"

#include "Toolkit/Thread.h"
#include "Toolkit/TickCount.h"
#include "controls/SkinnedControl.h"

#include <algorithm>

namespace UIKit {
namespace {

constexpr int kSteps = 10;
constexpr uint64_t kFrameMs = 25;

// Moves `value` one step towards `target` without passing it. A distance
// shorter than the step count gives a step of 0: it then jumps to the target
// so the animation still ends.
int advance(int value, int step, int target)
{
    if (step == 0)
        return target;
    value += step;
    return step > 0 ? std::min(value, target) : std::max(value, target);
}

// Keeps each frame at least 25 ms long.
void pace(uint64_t frameStart)
{
    const uint64_t taken = Toolkit::GetTickCount() - frameStart;
    if (taken < kFrameMs)
        Toolkit::Thread::Sleep(unsigned(kFrameMs - taken));
}

void redraw(wxWindow* window)
{
    if (auto* skinned = dynamic_cast<SkinnedControl*>(window))
        skinned->InvalidateCustomBitmapRecusive();
    window->Refresh(true);
    window->Update();
}

} // namespace

void Util::AnimatedSizeChange(wxWindow* window, int fromWidth, int fromHeight, int toWidth, int toHeight,
                              MotionType type, bool refresh)
{
    if (!window)
        return;
    // A one-way resize keeps the other dimension at its starting value.
    const int targetW = type == ResizeVertical ? fromWidth : toWidth;
    const int targetH = type == ResizeHorizontal ? fromHeight : toHeight;
    const int dw = (targetW - fromWidth) / kSteps;
    const int dh = (targetH - fromHeight) / kSteps;
    int w = fromWidth;
    int h = fromHeight;
    while (w != targetW || h != targetH) {
        const uint64_t start = Toolkit::GetTickCount();
        w = advance(w, dw, targetW);
        h = advance(h, dh, targetH);
        window->SetSize(-1, -1, w, h, wxSIZE_USE_EXISTING);
        if (refresh)
            window->Update();
        pace(start);
    }
}

void Util::AnimatedSlide(wxWindow* outgoing, wxWindow* incoming, const wxPoint& start, const wxSize& end,
                         MotionType type)
{
    if (!outgoing || !incoming)
        return;
    const bool horizontal = type == SlideLeft || type == SlideRight;
    const int from = horizontal ? start.x : start.y;
    const int to = horizontal ? end.x : end.y;
    const int step = (to - from) / kSteps;
    int offset = from;
    do {
        const uint64_t frameStart = Toolkit::GetTickCount();
        offset = advance(offset, step, to);
        wxPoint out = start;
        wxPoint in = start;
        switch (type) {
        case SlideRight: out.x = offset; in.x = offset - end.x + start.x; break;
        case SlideLeft: out.x = start.x - offset; in.x = end.x - offset; break;
        case SlideDown: out.y = offset; in.y = start.y - end.y + offset; break;
        case SlideUp: out.y = start.y - offset; in.y = start.y + end.y - offset; break;
        default: return;
        }
        outgoing->Move(out);
        incoming->Move(in);
        redraw(outgoing);
        redraw(incoming);
        pace(frameStart);
    } while (offset != to);
}

void Util::HLSlide(Control* out, Control* in, const wxPoint& start, const wxSize& end) { AnimatedSlide(out, in, start, end, SlideLeft); }
void Util::HRSlide(Control* out, Control* in, const wxPoint& start, const wxSize& end) { AnimatedSlide(out, in, start, end, SlideRight); }
void Util::VDSlide(Control* out, Control* in, const wxPoint& start, const wxSize& end) { AnimatedSlide(out, in, start, end, SlideDown); }
void Util::VUSlide(Control* out, Control* in, const wxPoint& start, const wxSize& end) { AnimatedSlide(out, in, start, end, SlideUp); }

} // namespace UIKit

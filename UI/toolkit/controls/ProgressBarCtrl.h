#pragma once
#include "module/Export.h"
// A progress bar showing a 64-bit value either as a bar growing over a
// background (bar mode) or as one frame of a strip (frame mode, the pack
// paints every step). The value is always kept within the range.
#include "controls/FrameStrip.h"
#include "controls/SkinnedControl.h"
#include "descriptors/ProgressBarCtrlDescriptor.h"

namespace UIKit {

class ImageCtrl;

class UIKIT_API ProgressBarCtrl : public SkinnedControl {
public:
    ProgressBarCtrl(wxWindow* parent, int id, const wxRect& bounds);

    bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor) override;
    void SetValue(long long value);
    // The smaller bound is the minimum, whatever the order.
    void SetRange(long long a, long long b);
    void SetValues(long long minimum, long long value, long long maximum);
    void DrawCustom(wxDC& dc) override;

    long long GetMinimum() const { return m_minimum; }
    long long GetMaximum() const { return m_maximum; }
    long long GetValue() const { return m_value; }
    // The strip frame shown in frame mode.
    unsigned int GetFrame() const;
    // The bar's width in bar mode, 0 when no bar is drawn.
    int GetBarWidth() const;

private:
    bool isFrameMode() const;
    // Clamps the value, rebuilds the bar and redraws.
    void update();

    long long m_minimum = 0;
    long long m_maximum = 100;
    long long m_value = 0;
    Toolkit::smart_ptr<ImageCtrl> m_progressImage;
    Toolkit::smart_ptr<ImageCtrl> m_backgroundImage;
    wxPoint m_progressPosition;
    Toolkit::smart_ptr<ProgressBarCtrlDescriptor> m_progress;
    FrameStrip m_strip;
};

} // namespace UIKit

#pragma once
#include "module/Export.h"
// A progress bar: either a filling image over a background, or an animation
// strip of frames as wide as the control.
#include "descriptors/BaseCtrlDescriptor.h"
#include "descriptors/ImageDescriptor.h"

namespace UIKit {

class UIKIT_API ProgressBarCtrlDescriptor : public BaseCtrlDescriptor {
public:
    enum ProgressStyle { Block = 1, Continue = 2, Animation = 3 };

    explicit ProgressBarCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node);

    const Toolkit::smart_ptr<ImageDescriptor>& GetAnimationStrip() const { return m_animationStrip; }
    int GetFrameDelay() const { return m_frameDelay; }
    int GetMaximum() const { return m_maximum; }
    int GetMinimum() const { return m_minimum; }
    const Toolkit::smart_ptr<ImageDescriptor>& GetBackgroundImage() const { return m_backgroundImage; }
    const Toolkit::smart_ptr<ImageDescriptor>& GetProgressImage() const { return m_progressImage; }
    int GetFrameCount() const { return m_frameCount; }
    ProgressStyle GetProgressStyle() const { return m_progressStyle; }

private:
    Toolkit::smart_ptr<ImageDescriptor> m_animationStrip;
    int m_frameDelay = -1;
    int m_maximum = 100;
    int m_minimum = 0;
    Toolkit::smart_ptr<ImageDescriptor> m_backgroundImage;
    Toolkit::smart_ptr<ImageDescriptor> m_progressImage;
    int m_frameCount = 0;
    ProgressStyle m_progressStyle = Continue;
};

} // namespace UIKit

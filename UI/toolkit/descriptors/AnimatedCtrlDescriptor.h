#pragma once
#include "module/Export.h"
// An animation: a strip of frames shown one after the other, each frame as
// wide as the control.
#include "descriptors/BaseCtrlDescriptor.h"
#include "descriptors/ImageDescriptor.h"

namespace UIKit {

class XMLLoader;

class UIKIT_API AnimatedCtrlDescriptor : public BaseCtrlDescriptor {
public:
    explicit AnimatedCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node);

    const Toolkit::smart_ptr<ImageDescriptor>& GetImages() const { return m_images; }
    // Whole frames in the strip; 0 without a strip or a width.
    unsigned int GetFrameCount() const { return m_frameCount; }
    int GetFrameDelay() const { return m_frameDelay; }
    bool IsRepeat() const { return m_repeat; }
    bool IsRunAtStartup() const { return m_runAtStartup; }

    // Whole frames of `frameWidth` in a strip `stripWidth` wide; a strip
    // that does not divide evenly is reported and its remainder dropped.
    static unsigned int CountFrames(const XMLLoader& loader, int stripWidth, int frameWidth);

private:
    Toolkit::smart_ptr<ImageDescriptor> m_images;
    unsigned int m_frameCount = 0;
    int m_frameDelay = -1;
    bool m_repeat = false;
    bool m_runAtStartup = false;
};

} // namespace UIKit

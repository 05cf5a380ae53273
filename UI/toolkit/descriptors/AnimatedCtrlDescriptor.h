#pragma once
#include "module/Export.h"
// An animation: a strip of frames shown one after the other.
#include "descriptors/BaseCtrlDescriptor.h"
#include "descriptors/ImageDescriptor.h"

namespace UIKit {

class UIKIT_API AnimatedCtrlDescriptor : public BaseCtrlDescriptor {
public:
    explicit AnimatedCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node);

    const Toolkit::smart_ptr<ImageDescriptor>& GetImages() const { return m_images; }
    int GetFrameDelay() const { return m_frameDelay; }
    bool IsRepeat() const { return m_repeat; }
    bool IsRunAtStartup() const { return m_runAtStartup; }

private:
    Toolkit::smart_ptr<ImageDescriptor> m_images;
    int m_frameDelay = -1;
    bool m_repeat = false;
    bool m_runAtStartup = false;
};

} // namespace UIKit

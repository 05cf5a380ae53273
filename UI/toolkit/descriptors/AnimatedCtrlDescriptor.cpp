#include "descriptors/AnimatedCtrlDescriptor.h"

#include "xml/XMLLoader.h"

#include <string>

namespace UIKit {

AnimatedCtrlDescriptor::AnimatedCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node)
    : BaseCtrlDescriptor(node), m_images(Toolkit::make_smart<ImageDescriptor>("Images", node))
{
    XMLLoader loader(node);
    m_frameDelay = loader.ReadInt("FrameDelay", "", -1);
    m_repeat = loader.ReadBool("Repeat", "", false);
    m_runAtStartup = loader.ReadBool("RunAtStartup", "", false);
    if (m_images->IsOk())
        m_frameCount = CountFrames(loader, m_images->GetImage().GetWidth(), GetBounds().width);
}

unsigned int AnimatedCtrlDescriptor::CountFrames(const XMLLoader& loader, int stripWidth, int frameWidth)
{
    if (frameWidth <= 0) {
        loader.Report("", "a frame strip needs a control of non-zero width");
        return 0;
    }
    if (stripWidth % frameWidth != 0)
        loader.Report("", "the frame strip is " + std::to_string(stripWidth) + " pixels wide, not a multiple of " +
                              std::to_string(frameWidth) + "; the last partial frame is dropped");
    return unsigned(stripWidth / frameWidth);
}

} // namespace UIKit

#include "descriptors/AnimatedCtrlDescriptor.h"

#include "xml/XMLLoader.h"

namespace UIKit {

AnimatedCtrlDescriptor::AnimatedCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node)
    : BaseCtrlDescriptor(node), m_images(Toolkit::make_smart<ImageDescriptor>("Images", node))
{
    XMLLoader loader(node);
    m_frameDelay = loader.ReadInt("FrameDelay", "", -1);
    m_repeat = loader.ReadBool("Repeat", "", false);
    m_runAtStartup = loader.ReadBool("RunAtStartup", "", false);
}

} // namespace UIKit

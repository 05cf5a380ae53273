#include "descriptors/FrameCtrlDescriptor.h"

#include "xml/XMLLoader.h"

namespace UIKit {

FrameCtrlDescriptor::FrameCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node)
    : PanelCtrlDescriptor(node), m_movable(XMLLoader(node).ReadBool("", "movable", true))
{
}

} // namespace UIKit

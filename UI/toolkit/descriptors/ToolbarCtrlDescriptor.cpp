#include "descriptors/ToolbarCtrlDescriptor.h"

#include "xml/XMLLoader.h"

namespace UIKit {

ToolbarCtrlDescriptor::ToolbarCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node)
    : PanelCtrlDescriptor(node), m_autoHide(XMLLoader(node).ReadBool("Style", "autohide", false))
{
}

} // namespace UIKit

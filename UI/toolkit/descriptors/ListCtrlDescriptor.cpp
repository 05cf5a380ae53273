#include "descriptors/ListCtrlDescriptor.h"

#include "xml/XMLLoader.h"

namespace UIKit {

ListCtrlDescriptor::ListCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node) : PanelCtrlDescriptor(node)
{
    XMLLoader loader(node);
    m_border = loader.ReadBool("Style", "border", false);
    m_oddRowColour = loader.ReadColor("Color", "altBackColorOdd");
    m_evenRowColour = loader.ReadColor("Color", "altBackColorEven");
}

} // namespace UIKit

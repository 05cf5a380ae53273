#include "descriptors/ButtonCtrlDescriptor.h"

#include "xml/XMLLoader.h"

namespace UIKit {

ButtonCtrlDescriptor::ButtonCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node)
    : StaticTextCtrlDescriptor(node), m_overImage(ReadImage(node, "Over")), m_pressedImage(ReadImage(node, "Pressed"))
{
    XMLLoader loader(node);
    m_tooltip = loader.ReadLabel("Tooltip", "");
    m_expandOnClick = loader.ReadBool("ExpandOnClick", "", false);
}

ButtonCtrlDescriptor::ButtonCtrlDescriptor(const Toolkit::smart_ptr<ButtonCtrlDescriptor>& other)
    : ButtonCtrlDescriptor(*other)
{
}

} // namespace UIKit

#include "descriptors/ScreenDescriptor.h"

#include "xml/XMLLoader.h"

namespace UIKit {

ScreenDescriptor::ScreenDescriptor(Toolkit::smart_ptr<XMLNode> node) : PanelCtrlDescriptor(node)
{
    XMLLoader loader(node);
    m_group = loader.ReadString("", "group");
    m_titleFont = Toolkit::make_smart<FontDescriptor>(node);
    m_titleImage = loader.ReadImage("Title", "");
    m_titleLabel = loader.ReadLabel("Label", "");
}

} // namespace UIKit

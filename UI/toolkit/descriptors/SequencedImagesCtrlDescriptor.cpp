#include "descriptors/SequencedImagesCtrlDescriptor.h"

#include "xml/XMLLoader.h"

namespace UIKit {

SequencedImagesCtrlDescriptor::SequencedImagesCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node)
    : BaseCtrlDescriptor(node), m_source(XMLLoader(node).ReadString("", "src"))
{
}

} // namespace UIKit

#include "descriptors/StatesBoxCtrlDescriptor.h"

#include "xml/XMLLoader.h"
#include "xml/XMLNode.h"

namespace UIKit {

StatesBoxCtrlDescriptor::StatesBoxCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node) : ButtonCtrlDescriptor(node)
{
    XMLLoader loader(node);
    m_stateImageSize = loader.ReadSize("StateImage", "size");
    m_stateImageMargin = loader.ReadPadding("StateImage", "margin");
    if (loader.ReadString("StateImage", "placement").HasSubstring(L"Right"))
        m_stateImageSide = Drawing::MiddleRight;

    // With several "StateImage" children it is unclear which one is meant,
    // so none is used.
    std::vector<Toolkit::smart_ptr<XMLNode>> stateImages;
    loader.GetNodes(stateImages, "StateImage");
    if (stateImages.size() == 1) {
        m_inactiveImage = ReadImage(node, "StateImage/ImageInactive");
        m_activeImage = ReadImage(node, "StateImage/ImageActive");
        m_unknownImage = ReadImage(node, "StateImage/ImageUnknown");
    }
}

StatesBoxCtrlDescriptor::StatesBoxCtrlDescriptor(const Toolkit::smart_ptr<StatesBoxCtrlDescriptor>& other)
    : StatesBoxCtrlDescriptor(*other)
{
}

} // namespace UIKit

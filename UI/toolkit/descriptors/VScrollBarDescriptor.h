#pragma once
#include "module/Export.h"
// A vertical scroll bar: a panel with a thumb image.
#include "descriptors/PanelCtrlDescriptor.h"

namespace UIKit {

class UIKIT_API VScrollBarDescriptor : public PanelCtrlDescriptor {
public:
    explicit VScrollBarDescriptor(Toolkit::smart_ptr<XMLNode> node)
        : PanelCtrlDescriptor(node), m_thumbImage(ReadImage(node, "Thumb"))
    {
    }

    const ImagePtr& GetThumbImage() const { return m_thumbImage; }

private:
    ImagePtr m_thumbImage;
};

} // namespace UIKit

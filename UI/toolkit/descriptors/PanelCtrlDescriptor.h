#pragma once
#include "module/Export.h"
// A skinned container: the base description plus its background images.
#include "descriptors/BaseCtrlDescriptor.h"
#include "descriptors/ImageDescriptor.h"

namespace UIKit {

using ImagePtr = Toolkit::smart_ptr<ImageDescriptor>;

class UIKIT_API PanelCtrlDescriptor : public BaseCtrlDescriptor {
public:
    explicit PanelCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node);
    explicit PanelCtrlDescriptor(const Toolkit::smart_ptr<PanelCtrlDescriptor>& other);

    const ImagePtr& GetBackgroundImage() const { return m_backgroundImage; }
    const ImagePtr& GetEnabledImage() const { return m_enabledImage; }
    const ImagePtr& GetDisabledImage() const { return m_disabledImage; }
    const ImagePtr& GetSelectedImage() const { return m_selectedImage; }
    // The image a panel draws normally: "BackgroundImage", else "Enabled".
    const ImagePtr& GetNormalImage() const;

protected:
    PanelCtrlDescriptor(const PanelCtrlDescriptor&) = default;
    // The image of one child element, shared by copies of the descriptor.
    static ImagePtr ReadImage(const Toolkit::smart_ptr<XMLNode>& node, const char* childName);

private:
    ImagePtr m_backgroundImage;
    ImagePtr m_enabledImage;
    ImagePtr m_disabledImage;
    ImagePtr m_selectedImage;
};

} // namespace UIKit

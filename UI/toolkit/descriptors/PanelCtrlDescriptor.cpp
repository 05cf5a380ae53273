#include "descriptors/PanelCtrlDescriptor.h"

namespace UIKit {

PanelCtrlDescriptor::PanelCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node)
    : BaseCtrlDescriptor(node),
      m_backgroundImage(ReadImage(node, "BackgroundImage")),
      m_enabledImage(ReadImage(node, "Enabled")),
      m_disabledImage(ReadImage(node, "Disabled")),
      m_selectedImage(ReadImage(node, "Selected"))
{
}

PanelCtrlDescriptor::PanelCtrlDescriptor(const Toolkit::smart_ptr<PanelCtrlDescriptor>& other)
    : PanelCtrlDescriptor(*other)
{
}

ImagePtr PanelCtrlDescriptor::ReadImage(const Toolkit::smart_ptr<XMLNode>& node, const char* childName)
{
    return Toolkit::make_smart<ImageDescriptor>(childName, node);
}

const ImagePtr& PanelCtrlDescriptor::GetNormalImage() const
{
    return m_backgroundImage->IsOk() ? m_backgroundImage : m_enabledImage;
}

} // namespace UIKit

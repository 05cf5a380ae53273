#include "descriptors/ImageDescriptor.h"

#include "xml/XMLLoader.h"
#include "xml/XMLNode.h"

namespace UIKit {

ImageDescriptor::ImageDescriptor(const TString<char>& childName, Toolkit::smart_ptr<XMLNode> node)
{
    XMLLoader loader(node);
    m_name = loader.ReadString(childName, "");
    if (!m_name.empty())
        m_image = loader.ReadImage(childName, "");
    m_margin = loader.ReadRect(childName, "margin");
}

ImageDescriptor::ImageDescriptor(const wxImage& image, const TString<wchar_t>& name, const wxRect& margin)
    : m_image(image), m_name(name), m_margin(margin)
{
}

} // namespace UIKit

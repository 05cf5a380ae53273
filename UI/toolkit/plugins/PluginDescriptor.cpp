#include "plugins/PluginDescriptor.h"

#include "xml/XMLLoader.h"

namespace UIKit {

PluginDescriptor::PluginDescriptor(Toolkit::smart_ptr<XMLNode> root)
{
    const XMLLoader reader(root);
    m_namespace = reader.ReadString("", "namespace");
    m_name = reader.ReadString("", "name");
    m_id = reader.ReadId("", "id");
    m_icon = reader.ReadImage("Icon", "");
    m_disabledIcon = reader.ReadImage("IconDisabled", "");
    m_title = reader.ReadLabel("Title", "");
    m_description = reader.ReadLabel("Description", "");
}

PluginDescriptor::~PluginDescriptor() = default;

} // namespace UIKit

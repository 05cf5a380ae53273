#include "descriptors/BaseCtrlDescriptor.h"

#include "xml/XMLLoader.h"
#include "xml/XMLNode.h"

namespace UIKit {

BaseCtrlDescriptor::BaseCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node)
{
    XMLLoader loader(node);
    m_class = loader.ReadString("", "class");
    m_name = loader.ReadString("", "name");
    m_id = loader.ReadId("", "id");
    m_bounds = loader.ReadRect("", "bounds");
    m_minSize = loader.ReadSize("", "min_size");
    m_maxSize = loader.ReadSize("", "max_size");
    m_visible = loader.ReadBool("", "visible", true);
    m_enable = loader.ReadBool("", "enable", true);
    m_tab = loader.ReadBool("", "tab", true);
    m_backColour = loader.ReadColor("Color", "back");
    m_backAltColour = loader.ReadColor("Color", "back_alt");
    m_foreColour = loader.ReadColor("Color", "fore");
    m_foreSelectedColour = loader.ReadColor("Color", "foreSelected");
    m_padding = loader.ReadRect("", "padding");
    m_hasPadding = !loader.ReadString("", "padding").empty();
    m_parentPosition = Drawing::ParseContentAlignment(loader.ReadString("Style", "parent_position"),
                                                      Drawing::MiddleRight);
}

BaseCtrlDescriptor::BaseCtrlDescriptor(const Toolkit::smart_ptr<BaseCtrlDescriptor>& other)
    : BaseCtrlDescriptor(*other)
{
}

void BaseCtrlDescriptor::attachChildren(DescriptorList controls, DescriptorList templates)
{
    m_controls = std::move(controls);
    m_templates = std::move(templates);
}

Toolkit::smart_ptr<BaseCtrlDescriptor> BaseCtrlDescriptor::GetFromList(const DescriptorList& list,
                                                                       const TString<wchar_t>& name)
{
    for (const auto& d : list)
        if (d && d->m_name == name)
            return d;
    return {};
}

Toolkit::smart_ptr<BaseCtrlDescriptor> BaseCtrlDescriptor::GetControl(const TString<wchar_t>& name) const
{
    return GetFromList(m_controls, name);
}

Toolkit::smart_ptr<BaseCtrlDescriptor> BaseCtrlDescriptor::GetTemplate(const TString<wchar_t>& name,
                                                                       bool recursive) const
{
    if (auto found = GetFromList(m_templates, name))
        return found;
    if (recursive)
        for (const auto& child : m_controls)
            if (child)
                if (auto found = child->GetTemplate(name, true))
                    return found;
    return {};
}

} // namespace UIKit

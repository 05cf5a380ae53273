#include "descriptors/BaseCtrlDescriptor.h"

#include "factory/CtrlFactory.h"
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
    m_parentPosition = Drawing::ParseContentAlignment(loader.ReadString("Style", "parent_position"),
                                                      Drawing::MiddleRight);
    m_controls = childDescriptors(node, "Control");
    m_templates = childDescriptors(node, "Template");
}

BaseCtrlDescriptor::BaseCtrlDescriptor(const Toolkit::smart_ptr<BaseCtrlDescriptor>& other)
    : BaseCtrlDescriptor(*other)
{
}

DescriptorList BaseCtrlDescriptor::childDescriptors(const Toolkit::smart_ptr<XMLNode>& node,
                                                    const char* elementName)
{
    DescriptorList out;
    auto factory = CtrlFactory::Instance();
    if (!factory)
        return out;
    std::vector<Toolkit::smart_ptr<XMLNode>> children;
    XMLLoader(node).GetNodes(children, elementName);
    for (const auto& child : children)
        if (auto descriptor = factory->CreateDescriptor(child))
            out.push_back(descriptor);
    return out;
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

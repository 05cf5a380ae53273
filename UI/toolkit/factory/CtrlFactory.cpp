#include "factory/CtrlFactory.h"

#include "Toolkit/PluginAction.h"
#include "xml/XMLLoader.h"
#include "xml/XMLNode.h"

#include <string>
#include <vector>

namespace UIKit {

void CtrlFactory::AddGenerator(const TString<wchar_t>& name, GeneratorPtr generator)
{
    if (!generator)
        return;
    // A plug-in's generator keeps the plug-in's library loaded while it is
    // held here, which may be after the plug-in itself has been released.
    Toolkit::PluginAction::KeepLoaded(generator);
    if (!m_generators.emplace(name, std::move(generator)).second)
        TK_LOG(Toolkit::LogError) << "The control class " << name
                                    << " is already registered; the first registration is kept";
}

void CtrlFactory::RemoveGenerator(const TString<wchar_t>& name)
{
    m_generators.erase(name);
}

CtrlFactory::GeneratorPtr CtrlFactory::GetGenerator(const TString<wchar_t>& name) const
{
    const auto it = m_generators.find(name);
    return it == m_generators.end() ? GeneratorPtr() : it->second;
}

Toolkit::smart_ptr<BaseCtrlDescriptor> CtrlFactory::CreateDescriptor(Toolkit::smart_ptr<XMLNode> node) const
{
    bool limitReported = false;
    return createDescriptor(node, 1, limitReported);
}

Toolkit::smart_ptr<BaseCtrlDescriptor> CtrlFactory::createDescriptor(const Toolkit::smart_ptr<XMLNode>& node, int level,
                                                                     bool& limitReported) const
{
    if (!node)
        return {};
    auto generator = GetGenerator(node->GetClass());
    if (!generator) {
        node->Report(node->GetClass().empty()
                         ? "control element without a class"
                         : "unknown control class '" + Toolkit::UTF8::ToUTF8(node->GetClass()) + "'");
        return {};
    }
    auto descriptor = generator->CreateDescriptor(node);
    if (descriptor)
        descriptor->attachChildren(childDescriptors(node, "Control", level, limitReported),
                                   childDescriptors(node, "Template", level, limitReported));
    return descriptor;
}

DescriptorList CtrlFactory::childDescriptors(const Toolkit::smart_ptr<XMLNode>& node, const char* elementName,
                                             int level, bool& limitReported) const
{
    DescriptorList out;
    std::vector<Toolkit::smart_ptr<XMLNode>> children;
    XMLLoader(node).GetNodes(children, elementName);
    if (children.empty())
        return out;
    // Every later walk over the tree (building windows, looking up
    // templates, releasing descriptors) recurses once per level, and the
    // toolkit slows to a crawl on deeply nested windows.
    if (level >= kMaxControlDepth) {
        if (!limitReported)
            children.front()->Report("controls nested deeper than " + std::to_string(kMaxControlDepth) +
                                     " levels are left out");
        limitReported = true;
        return out;
    }
    for (const auto& child : children)
        if (auto descriptor = createDescriptor(child, level + 1, limitReported))
            out.push_back(descriptor);
    return out;
}

Toolkit::smart_ptr<BaseCtrlDescriptor> CtrlFactory::CreateDescriptorFromPack(const TString<wchar_t>& name) const
{
    // Descriptors copy what they read, so the document can go once the tree is built.
    XMLLoader loader;
    loader.SetResources(m_resources);
    if (!loader.LoadFromAppearance(name))
        return {};
    return CreateDescriptor(loader.GetRootNode());
}

Control* CtrlFactory::CreateControl(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor, wxWindow* parent,
                                    int id) const
{
    if (!descriptor)
        return nullptr;
    return CreateControl(GetGenerator(descriptor->GetClass()), descriptor, parent, id);
}

Control* CtrlFactory::CreateControl(GeneratorPtr generator, Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor,
                                    wxWindow* parent, int id) const
{
    return generator ? generator->CreateControl(descriptor, parent, id, context()) : nullptr;
}

void CtrlFactory::CreateControls(std::list<Control*>& out, DescriptorList descriptors, wxWindow* parent,
                                 int id) const
{
    out.clear();
    for (const auto& descriptor : descriptors)
        if (Control* control = CreateControl(descriptor, parent, id))
            out.push_back(control);
}

void CtrlFactory::CreateChildren(wxWindow* parent, const BaseCtrlDescriptor& descriptor) const
{
    std::list<Control*> children;
    CreateControls(children, descriptor.GetControls(), parent, -1);
}

} // namespace UIKit

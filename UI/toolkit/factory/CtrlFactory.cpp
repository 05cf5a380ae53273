#include "factory/CtrlFactory.h"

#include "controls/Control.h"
#include "xml/XMLNode.h"

namespace UIKit {

void CtrlFactory::AddGenerator(const TString<wchar_t>& name, GeneratorPtr generator)
{
    if (generator)
        m_generators.emplace(name, std::move(generator));
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
    if (!node)
        return {};
    auto generator = GetGenerator(node->GetClass());
    return generator ? generator->CreateDescriptor(node) : Toolkit::smart_ptr<BaseCtrlDescriptor>();
}

Control* CtrlFactory::CreateControl(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor, wxWindow* parent,
                                    int id) const
{
    if (!descriptor)
        return nullptr;
    auto generator = GetGenerator(descriptor->GetClass());
    return generator ? generator->CreateControl(descriptor, parent, id) : nullptr;
}

Control* CtrlFactory::CreateControl(GeneratorPtr generator, Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor,
                                    wxWindow* parent, int id) const
{
    return generator ? generator->CreateControl(descriptor, parent, id) : nullptr;
}

void CtrlFactory::CreateControls(std::list<Control*>& out, DescriptorList descriptors, wxWindow* parent,
                                 int id) const
{
    out.clear();
    for (const auto& descriptor : descriptors)
        if (Control* control = CreateControl(descriptor, parent, id))
            out.push_back(control);
}

void CtrlFactory::discard(Control* control)
{
    control->Destroy();
}

} // namespace UIKit

#include "descriptors/TemplateManager.h"

#include "Toolkit/ILogger.h"
#include "xml/XMLLoader.h"
#include "xml/XMLNode.h"

namespace UIKit {

void TemplateManager::Load(Toolkit::smart_ptr<XMLNode> templates, const IDescriptorBuilder& builder)
{
    if (!templates)
        return;
    std::vector<Toolkit::smart_ptr<XMLNode>> controls;
    XMLLoader(templates).GetNodes(controls, "Control");
    for (const auto& control : controls)
        if (auto descriptor = builder.CreateDescriptor(control))
            Add(descriptor);
}

bool TemplateManager::Add(const Toolkit::smart_ptr<BaseCtrlDescriptor>& descriptor)
{
    const auto& key = descriptor->GetClass();
    if (!m_templates.emplace(key, descriptor).second) {
        // Plug-ins may share templates; the first one loaded is the one used.
        TK_LOG(Toolkit::LogInfo) << "Template KEY[" << key << "] already exists in the templates map";
        return false;
    }
    return true;
}

Toolkit::smart_ptr<BaseCtrlDescriptor> TemplateManager::Get(const TString<wchar_t>& key) const
{
    const auto it = m_templates.find(key);
    if (it == m_templates.end()) {
        TK_LOG(Toolkit::LogError) << "Template KEY[" << key << "] does not exist in the templates map";
        return {};
    }
    return it->second;
}

} // namespace UIKit

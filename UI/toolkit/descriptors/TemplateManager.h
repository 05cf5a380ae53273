#pragma once
#include "module/Export.h"
// The registry of named control descriptions ("templates") that plug-ins
// declare; screens, list items and setting panels are built from them by
// name. A template is keyed by its "class" value; the first registration of
// a key wins.
#include "descriptors/BaseCtrlDescriptor.h"
#include "descriptors/IDescriptorBuilder.h"
#include "module/Singleton.h"

#include <map>

namespace UIKit {

class UIKIT_API TemplateManager : public Singleton<TemplateManager> {
public:
    // Registers every "Control" child of a "Templates" element, each built
    // (with its children) by the builder, normally the control factory.
    void Load(Toolkit::smart_ptr<XMLNode> templates, const IDescriptorBuilder& builder);
    // Registers one descriptor under its class; false (and logged) when the
    // key is taken.
    bool Add(const Toolkit::smart_ptr<BaseCtrlDescriptor>& descriptor);
    // The template of exactly that key, or null (logged).
    Toolkit::smart_ptr<BaseCtrlDescriptor> Get(const TString<wchar_t>& key) const;
    size_t Size() const { return m_templates.size(); }

private:
    std::map<TString<wchar_t>, Toolkit::smart_ptr<BaseCtrlDescriptor>> m_templates;
};

} // namespace UIKit

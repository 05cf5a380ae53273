#pragma once
#include "module/Export.h"
// Turns skin elements into descriptors and descriptors into controls, one
// whole tree at a time: pack -> document -> descriptor tree -> control
// tree. It knows no control class itself: hosts and plug-ins register one
// generator per class name (the "class" attribute of an element). The
// resources it is given are what the documents it loads and the controls it
// builds read images and strings from.
#include "Toolkit/ILogger.h"
#include "Toolkit/UTF8.h"
#include "descriptors/BaseCtrlDescriptor.h"
#include "descriptors/IDescriptorBuilder.h"
#include "descriptors/TemplateManager.h"
#include "factory/ICtrlFactoryGenerator.h"
#include "module/Singleton.h"
#include "xml/ErrorSink.h"

#include <list>
#include <map>
#include <string>

class wxWindow;

namespace UIKit {

class IResourceProvider;

class UIKIT_API CtrlFactory : public Singleton<CtrlFactory>, public IDescriptorBuilder {
public:
    using GeneratorPtr = Toolkit::smart_ptr<ICtrlFactoryGenerator>;

    // Far beyond any real skin; bounds the depth of every descriptor and
    // control tree the factory builds.
    static constexpr int kMaxControlDepth = 32;

    // Registers a generator; a name already taken keeps its first generator
    // and the second registration is logged.
    void AddGenerator(const TString<wchar_t>& name, GeneratorPtr generator);
    void RemoveGenerator(const TString<wchar_t>& name);
    GeneratorPtr GetGenerator(const TString<wchar_t>& name) const;

    // The pack documents and controls read from; not owned.
    void SetResources(IResourceProvider* resources) { m_resources = resources; }
    IResourceProvider* GetResources() const { return m_resources; }

    // The descriptor of the element's class with the descriptors of its
    // "Control" and "Template" children attached, depth first; null when no
    // generator knows the class. Unknown classes are reported with the
    // element's file and line, and their elements left out, as are controls
    // and templates nested more than kMaxControlDepth levels deep (the
    // element passed in is level 1), reported once per tree.
    Toolkit::smart_ptr<BaseCtrlDescriptor> CreateDescriptor(Toolkit::smart_ptr<XMLNode> node) const override;
    // Reads the description file `name` of the resources and builds its
    // descriptor tree; null (reported) when it cannot be read.
    Toolkit::smart_ptr<BaseCtrlDescriptor> CreateDescriptorFromPack(const TString<wchar_t>& name) const;

    // The control and, below it, the controls of its whole descriptor tree.
    Control* CreateControl(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor, wxWindow* parent, int id) const;
    Control* CreateControl(GeneratorPtr generator, Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor,
                           wxWindow* parent, int id) const;
    // Builds every descriptor's control under `parent`; those that cannot be
    // built are left out.
    void CreateControls(std::list<Control*>& out, DescriptorList descriptors, wxWindow* parent, int id) const;
    // Builds the controls of the descriptor's children under `parent`: what
    // a loaded control or frame gets as its children.
    void CreateChildren(wxWindow* parent, const BaseCtrlDescriptor& descriptor) const;

    // Builds the template registered under `name` as a T; null (and the
    // control destroyed) when the template's class does not make a T.
    template <class T>
    T* CreateControl(const TString<wchar_t>& name, wxWindow* parent, int id) const;

private:
    Toolkit::smart_ptr<BaseCtrlDescriptor> createDescriptor(const Toolkit::smart_ptr<XMLNode>& node, int level,
                                                            bool& limitReported) const;
    // The descriptors of the element's children of that name, which are at
    // `level` + 1.
    DescriptorList childDescriptors(const Toolkit::smart_ptr<XMLNode>& node, const char* elementName, int level,
                                    bool& limitReported) const;
    ControlContext context() const { return ControlContext{m_resources, this}; }
    // Destroys a control that was built but is not handed out.
    template <class W>
    static void discard(W* window)
    {
        window->Destroy();
    }

    std::map<TString<wchar_t>, GeneratorPtr> m_generators;
    IResourceProvider* m_resources = nullptr;
};

template <class T>
T* CtrlFactory::CreateControl(const TString<wchar_t>& name, wxWindow* parent, int id) const
{
    auto templates = TemplateManager::Instance();
    auto descriptor = templates ? templates->Get(name) : Toolkit::smart_ptr<BaseCtrlDescriptor>();
    if (!descriptor) {
        Toolkit::LogStream(Toolkit::LogInfo, __FILE__, __LINE__, "CreateControl")
            << " => Missing Interface Descriptor '" << name << "' !";
        ErrorSink::Report(std::string(), 0, "undefined template '" + Toolkit::UTF8::ToUTF8(name) + "'");
        return nullptr;
    }
    auto* control = CreateControl(descriptor, parent, id);
    T* typed = dynamic_cast<T*>(control);
    if (control && !typed)
        discard(control);
    return typed;
}

} // namespace UIKit

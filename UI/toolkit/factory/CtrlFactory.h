#pragma once
// Turns skin elements into descriptors and descriptors into controls. It
// knows no control class itself: hosts and plug-ins register one generator
// per class name (the "class" attribute of an element).
#include "Toolkit/ILogger.h"
#include "descriptors/BaseCtrlDescriptor.h"
#include "descriptors/TemplateManager.h"
#include "factory/ICtrlFactoryGenerator.h"
#include "module/Singleton.h"

#include <list>
#include <map>

class wxWindow;

namespace UIKit {

class CtrlFactory : public Singleton<CtrlFactory> {
public:
    using GeneratorPtr = Toolkit::smart_ptr<ICtrlFactoryGenerator>;

    // Registers a generator; a name already taken keeps its first generator.
    void AddGenerator(const TString<wchar_t>& name, GeneratorPtr generator);
    void RemoveGenerator(const TString<wchar_t>& name);
    GeneratorPtr GetGenerator(const TString<wchar_t>& name) const;

    // The descriptor of the element's class, or null when no generator
    // knows the class.
    Toolkit::smart_ptr<BaseCtrlDescriptor> CreateDescriptor(Toolkit::smart_ptr<XMLNode> node) const;

    Control* CreateControl(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor, wxWindow* parent, int id) const;
    Control* CreateControl(GeneratorPtr generator, Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor,
                           wxWindow* parent, int id) const;
    // Builds every descriptor's control under `parent`; those that cannot be
    // built are left out.
    void CreateControls(std::list<Control*>& out, DescriptorList descriptors, wxWindow* parent, int id) const;

    // Builds the template registered under `name` as a T; null (and the
    // control destroyed) when the template's class does not make a T.
    template <class T>
    T* CreateControl(const TString<wchar_t>& name, wxWindow* parent, int id) const;

private:
    // Destroys a control that was built but is not handed out.
    static void discard(Control* control);

    std::map<TString<wchar_t>, GeneratorPtr> m_generators;
};

template <class T>
T* CtrlFactory::CreateControl(const TString<wchar_t>& name, wxWindow* parent, int id) const
{
    auto templates = TemplateManager::Instance();
    auto descriptor = templates ? templates->Get(name) : Toolkit::smart_ptr<BaseCtrlDescriptor>();
    if (!descriptor) {
        Toolkit::LogStream(Toolkit::LogInfo, __FILE__, __LINE__, "CreateControl")
            << " => Missing Interface Descriptor '" << name << "' !";
        return nullptr;
    }
    Control* control = CreateControl(descriptor, parent, id);
    T* typed = dynamic_cast<T*>(control);
    if (control && !typed)
        discard(control);
    return typed;
}

} // namespace UIKit

#pragma once
#include "module/Export.h"
// Knows how to make the descriptor and the control of one control class.
// Hosts and plug-ins register one generator per class with the factory,
// usually as a CtrlGenerator<Descriptor, Control>.
#include "Toolkit/smart_ptr.h"

class wxWindow;

namespace UIKit {

class BaseCtrlDescriptor;
class Control;
class CtrlFactory;
class IResourceProvider;
class XMLNode;

// What the factory hands a generator along with the descriptor: the pack
// the control reads its images from, and the factory that builds the
// control's children once the control is loaded.
struct UIKIT_API ControlContext {
    IResourceProvider* resources = nullptr;
    const CtrlFactory* factory = nullptr;
};

class UIKIT_API ICtrlFactoryGenerator {
public:
    virtual ~ICtrlFactoryGenerator() = default;
    // The element's own descriptor; the factory attaches the children.
    virtual Toolkit::smart_ptr<BaseCtrlDescriptor> CreateDescriptor(Toolkit::smart_ptr<XMLNode> node) = 0;
    // The control alone, loaded from the descriptor without resources.
    virtual Control* CreateControl(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor, wxWindow* parent, int id) = 0;
    // What the factory calls: the control loaded with the context's
    // resources, then its children built by the context's factory. A
    // generator that only knows CreateControl gets a control without them.
    virtual Control* CreateControl(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor, wxWindow* parent, int id,
                                   const ControlContext&)
    {
        return CreateControl(descriptor, parent, id);
    }
};

} // namespace UIKit

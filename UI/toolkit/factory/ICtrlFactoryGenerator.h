#pragma once
// Knows how to make the descriptor and the control of one control class.
// Hosts and plug-ins register one generator per class with the factory,
// usually as a CtrlGenerator<Descriptor, Control>.
#include "Toolkit/smart_ptr.h"

class wxWindow;

namespace UIKit {

class BaseCtrlDescriptor;
class Control;
class XMLNode;

class ICtrlFactoryGenerator {
public:
    virtual ~ICtrlFactoryGenerator() = default;
    virtual Toolkit::smart_ptr<BaseCtrlDescriptor> CreateDescriptor(Toolkit::smart_ptr<XMLNode> node) = 0;
    virtual Control* CreateControl(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor, wxWindow* parent, int id) = 0;
};

} // namespace UIKit

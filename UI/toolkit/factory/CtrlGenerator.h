#pragma once
// Pairs a descriptor class with a control class, so registering a control
// class takes one line:
//
//     factory.AddGenerator(L"ButtonCtrl", CtrlGenerator<ButtonCtrlDescriptor, ButtonCtrl>::Make());
//
// The control is built empty under its parent with the descriptor's bounds,
// given the pack's resources, configured by LoadDescriptor, and then given
// its children by the factory. A window id of -1 (what containers pass for
// their children) gives the control the id its description declares, so
// buttons report ID_OK and the like. Classes whose constructor takes other
// arguments pass their own construction as the third parameter.
#include "descriptors/BaseCtrlDescriptor.h"
#include "factory/CtrlFactory.h"
#include "factory/ICtrlFactoryGenerator.h"

#include <wx/window.h>

namespace UIKit {

template <class ControlT>
struct ConstructWithBounds {
    ControlT* operator()(wxWindow* parent, int id, const BaseCtrlDescriptor& descriptor) const
    {
        return new ControlT(parent, id, descriptor.GetBounds());
    }
};

// Makes descriptors only: for classes that are not built as child controls,
// such as frames, which the host creates itself and then configures.
template <class DescriptorT>
class DescriptorGenerator : public ICtrlFactoryGenerator {
public:
    static Toolkit::smart_ptr<ICtrlFactoryGenerator> Make()
    {
        return Toolkit::smart_ptr<ICtrlFactoryGenerator>(new DescriptorGenerator());
    }

    Toolkit::smart_ptr<BaseCtrlDescriptor> CreateDescriptor(Toolkit::smart_ptr<XMLNode> node) override
    {
        return Toolkit::smart_ptr<BaseCtrlDescriptor>(new DescriptorT(node));
    }

    Control* CreateControl(Toolkit::smart_ptr<BaseCtrlDescriptor>, wxWindow*, int) override { return nullptr; }
    using ICtrlFactoryGenerator::CreateControl;
};

template <class DescriptorT, class ControlT, class Construct = ConstructWithBounds<ControlT>>
class CtrlGenerator : public DescriptorGenerator<DescriptorT> {
public:
    static Toolkit::smart_ptr<ICtrlFactoryGenerator> Make()
    {
        return Toolkit::smart_ptr<ICtrlFactoryGenerator>(new CtrlGenerator());
    }

    Control* CreateControl(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor, wxWindow* parent, int id) override
    {
        return CreateControl(descriptor, parent, id, ControlContext{});
    }

    Control* CreateControl(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor, wxWindow* parent, int id,
                           const ControlContext& context) override
    {
        if (!descriptor)
            return nullptr;
        // The new window belongs to its parent from here on.
        ControlT* control = Construct()(parent, id == -1 ? descriptor->GetId() : id, *descriptor);
        control->SetResources(context.resources);
        control->LoadDescriptor(descriptor);
        if (context.factory)
            context.factory->CreateChildren(control, *descriptor);
        return control;
    }
};

} // namespace UIKit

#include "lists/ListControls.h"

#include "descriptors/ButtonCtrlDescriptor.h"
#include "descriptors/ListCtrlDescriptor.h"
#include "factory/CtrlFactory.h"
#include "factory/CtrlGenerator.h"
#include "lists/CheckedListItemCtrl.h"
#include "lists/ContainerListItemCtrl.h"
#include "lists/LabeledListItemCtrl.h"
#include "lists/ListCtrl.h"

namespace UIKit {

namespace {

struct ConstructList {
    ListCtrl* operator()(wxWindow* parent, int id, const BaseCtrlDescriptor& descriptor) const
    {
        return new ListCtrl(parent, id, descriptor.GetBounds(), wxNO_BORDER);
    }
};

} // namespace

void RegisterListControls(CtrlFactory& factory)
{
    factory.AddGenerator(L"ListCtrl", CtrlGenerator<ListCtrlDescriptor, ListCtrl, ConstructList>::Make());
    factory.AddGenerator(L"ListItemCtrl", CtrlGenerator<ButtonCtrlDescriptor, ListItemCtrl>::Make());
    factory.AddGenerator(L"UIKit::ListItemCtrl", CtrlGenerator<ButtonCtrlDescriptor, ListItemCtrl>::Make());
    factory.AddGenerator(L"CheckedListItemCtrl", CtrlGenerator<ButtonCtrlDescriptor, CheckedListItemCtrl>::Make());
    factory.AddGenerator(L"ContainerListItemCtrl", CtrlGenerator<ButtonCtrlDescriptor, ContainerListItemCtrl>::Make());
    factory.AddGenerator(L"LabeledListItemCtrl", CtrlGenerator<ButtonCtrlDescriptor, LabeledListItemCtrl>::Make());
}

} // namespace UIKit

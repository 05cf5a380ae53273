#pragma once
#include "module/Export.h"
// Registers the list and its row classes with a control factory. The rows
// are also registered under "UIKit::ListItemCtrl", the class of the default
// row template, so that template builds a list item.
namespace UIKit {

class CtrlFactory;

UIKIT_API void RegisterListControls(CtrlFactory& factory);

} // namespace UIKit

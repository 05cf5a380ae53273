#pragma once
#include "module/Export.h"
// The one call a host makes to register every control class of the library
// with its factory, under the class names skins use. The library registers
// nothing by itself: the host decides when, and plug-ins add their own.
namespace UIKit {

class CtrlFactory;

UIKIT_API void RegisterStandardControls(CtrlFactory& factory);

} // namespace UIKit

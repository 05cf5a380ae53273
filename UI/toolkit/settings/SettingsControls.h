#pragma once
#include "module/Export.h"
// Registers the control classes of the settings area with a factory: the
// settings screen, its pages and the rows of the settings lists.
namespace UIKit {

class CtrlFactory;

UIKIT_API void RegisterSettingsControls(CtrlFactory& factory);

} // namespace UIKit

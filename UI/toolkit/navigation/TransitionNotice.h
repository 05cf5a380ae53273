#pragma once
#include "module/Export.h"
// Tells the main window, when there is one, that the interface is about to
// move to another sequence. Kept apart from the sequence manager, the only
// window the navigation core touches.

namespace UIKit {

UIKIT_API void NotifyBeforeTransition();

struct EventDescriptor;
// An event row named a transition that nobody registered: one report, as
// "file:line: Transition [name] not found!" when the row came from a file.
UIKIT_API void ReportUnknownTransition(const EventDescriptor& row);

} // namespace UIKit

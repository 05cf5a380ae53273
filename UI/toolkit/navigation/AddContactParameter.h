#pragma once
#include "module/Export.h"
// Opens a plug-in's contact editor with a text to start from.
#include "navigation/TextParameter.h"

namespace UIKit {

using AddContactParameter = TextParameter<struct AddContactKind>;

} // namespace UIKit

#pragma once
#include "module/Export.h"
// Opens a plug-in's message editor for a contact.
#include "navigation/TextParameter.h"

namespace UIKit {

using ContactSendSMSParameter = TextParameter<struct ContactSendSMSKind>;

} // namespace UIKit

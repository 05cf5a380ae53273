#pragma once
#include "module/Export.h"
// Starts a plug-in's connection flow.
#include "navigation/TextParameter.h"

namespace UIKit {

using ConnectProcessParameter = TextFlagParameter<struct ConnectProcessKind>;

} // namespace UIKit

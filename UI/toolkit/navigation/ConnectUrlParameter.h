#pragma once
#include "module/Export.h"
// Opens a connection to an address.
#include "navigation/TextParameter.h"

namespace UIKit {

using ConnectUrlParameter = TextFlagParameter<struct ConnectUrlKind>;

} // namespace UIKit

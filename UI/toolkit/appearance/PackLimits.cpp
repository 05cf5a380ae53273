#include "appearance/PackLimits.h"

namespace UIKit {

PackLimits& PackLimits::Current()
{
    static PackLimits limits;
    return limits;
}

} // namespace UIKit

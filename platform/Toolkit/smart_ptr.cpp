#include "Toolkit/smart_ptr.h"

namespace Toolkit::detail {

std::mutex& customActionLock()
{
    static std::mutex m;
    return m;
}

} // namespace Toolkit::detail

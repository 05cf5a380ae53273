#pragma once
#include "module/Export.h"
// What an event hands to the state it activates. A state finds out the kind
// of data it received with a dynamic cast; parameters are made on the heap
// and shared, so a posted event and its copy carry the same object.

namespace UIKit {

class UIKIT_API IStateParameter {
public:
    virtual ~IStateParameter() = default;
};

} // namespace UIKit

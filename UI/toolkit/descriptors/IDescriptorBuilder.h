#pragma once
#include "module/Export.h"
// Builds the descriptor of an element, children included. The factory is
// the builder; descriptor-level code that meets control elements (the
// template registry) is handed one instead of reaching up for it.
#include "Toolkit/smart_ptr.h"

namespace UIKit {

class BaseCtrlDescriptor;
class XMLNode;

class UIKIT_API IDescriptorBuilder {
public:
    virtual ~IDescriptorBuilder() = default;
    // Null when the element's class is unknown (the builder reports it).
    virtual Toolkit::smart_ptr<BaseCtrlDescriptor> CreateDescriptor(Toolkit::smart_ptr<XMLNode> node) const = 0;
};

} // namespace UIKit

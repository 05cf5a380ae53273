#pragma once
// A vertically scrolling panel; it needs nothing beyond the panel's values.
#include "descriptors/PanelCtrlDescriptor.h"

namespace UIKit {

class VScrollCtrlDescriptor : public PanelCtrlDescriptor {
public:
    explicit VScrollCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node) : PanelCtrlDescriptor(node) {}
};

} // namespace UIKit

#pragma once
#include "module/Export.h"
// A vertically scrolling panel; it needs nothing beyond the panel's values.
#include "descriptors/PanelCtrlDescriptor.h"

namespace UIKit {

class UIKIT_API VScrollCtrlDescriptor : public PanelCtrlDescriptor {
public:
    explicit VScrollCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node) : PanelCtrlDescriptor(node) {}
};

} // namespace UIKit

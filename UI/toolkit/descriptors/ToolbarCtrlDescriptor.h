#pragma once
// A toolbar: a panel that may hide itself when the pointer leaves.
#include "descriptors/PanelCtrlDescriptor.h"

namespace UIKit {

class ToolbarCtrlDescriptor : public PanelCtrlDescriptor {
public:
    explicit ToolbarCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node);

    bool IsAutoHide() const { return m_autoHide; }

private:
    bool m_autoHide = false;
};

} // namespace UIKit

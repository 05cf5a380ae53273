#pragma once
#include "module/Export.h"
// A toolbar: a panel that may hide itself when the pointer leaves.
#include "descriptors/PanelCtrlDescriptor.h"

namespace UIKit {

class UIKIT_API ToolbarCtrlDescriptor : public PanelCtrlDescriptor {
public:
    explicit ToolbarCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node);

    bool IsAutoHide() const { return m_autoHide; }

private:
    bool m_autoHide = false;
};

} // namespace UIKit

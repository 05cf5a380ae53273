#pragma once
#include "module/Export.h"
// A skinned top-level frame: a panel the user may or may not drag.
#include "descriptors/PanelCtrlDescriptor.h"

namespace UIKit {

class UIKIT_API FrameCtrlDescriptor : public PanelCtrlDescriptor {
public:
    explicit FrameCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node);

    bool IsMovable() const { return m_movable; }

private:
    bool m_movable = true;
};

} // namespace UIKit

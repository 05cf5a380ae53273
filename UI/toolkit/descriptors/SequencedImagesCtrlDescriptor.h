#pragma once
#include "module/Export.h"
// A control that shows a sequence of images named by its "src" attribute,
// which the control interprets.
#include "descriptors/BaseCtrlDescriptor.h"

namespace UIKit {

class UIKIT_API SequencedImagesCtrlDescriptor : public BaseCtrlDescriptor {
public:
    explicit SequencedImagesCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node);

    const TString<wchar_t>& GetSource() const { return m_source; }

private:
    TString<wchar_t> m_source;
};

} // namespace UIKit

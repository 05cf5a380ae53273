#pragma once
#include "module/Export.h"
// What the library hands every plug-in it loads: the appearance of the
// application, so that a plug-in reads the same pack, images and strings.
#include "Toolkit/smart_ptr.h"

namespace UIKit {

class Appearance;

class UIKIT_API PluginParameters {
public:
    explicit PluginParameters(Toolkit::smart_ptr<Appearance> appearance);
    virtual ~PluginParameters();

    const Toolkit::smart_ptr<Appearance>& GetAppearance() const { return m_appearance; }

private:
    Toolkit::smart_ptr<Appearance> m_appearance;
};

} // namespace UIKit

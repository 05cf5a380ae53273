#pragma once
// The usage plug-in: contributes the data-usage and about screens, the
// transitions that show them, and a hot key to the usage screen.
#include "plugins/Plugin.h"

namespace usageplugin {

class UsagePlugin : public UIKit::Plugin {
public:
    UsagePlugin();

    bool Activate() override;
    bool Deactivate() override;
    void Hotkey(const TString<wchar_t>& name) override;
};

} // namespace usageplugin

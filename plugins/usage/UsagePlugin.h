#pragma once
// The usage plug-in: contributes the data-usage and about screens, the
// transitions that show them, and a hot key to the usage screen.
#include "ScreenPlugin.h"

namespace usageplugin {

class UsagePlugin : public pluginsupport::ScreenPlugin {
public:
    UsagePlugin();

    void Hotkey(const TString<wchar_t>& name) override;
};

} // namespace usageplugin

// The smallest graphical-interface plug-in: it accepts activation and
// answers a hot key by remembering it.
#include "plugins/Plugin.h"
#include "plugins/PluginParameters.h"

namespace {

class SamplePlugin : public UIKit::Plugin {
public:
    SamplePlugin() : Plugin(L"sample_plugin") {}
    bool Activate() override { return true; }
    void Hotkey(const TString<wchar_t>& name) override { m_lastHotkey = name; }

private:
    TString<wchar_t> m_lastHotkey;
};

} // namespace

extern "C" __attribute__((visibility("default"))) bool GetPlugin(Toolkit::smart_ptr<UIKit::Plugin>& plugin,
                                                                 UIKit::PluginParameters*)
{
    plugin.reset(new SamplePlugin());
    return true;
}

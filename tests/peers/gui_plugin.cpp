// A test graphical-interface plug-in. TEST_PLUGIN_ITEMS names its item file
// in the test pack; TEST_PLUGIN_ACTIVATES 0 makes it refuse activation;
// TEST_PLUGIN_GENERATOR 1 makes it register a control generator of its own.
// It logs its deactivation, so tests see the order.
#include "Toolkit/ILogger.h"
#include "plugins/Plugin.h"
#include "plugins/PluginParameters.h"
#if TEST_PLUGIN_GENERATOR
#include "controls/PanelCtrl.h"
#include "descriptors/PanelCtrlDescriptor.h"
#include "factory/CtrlGenerator.h"
#endif

namespace {

class TestPlugin : public UIKit::Plugin {
public:
    TestPlugin() : Plugin(TEST_PLUGIN_ITEMS) {}

    bool Activate() override
    {
        if (!TEST_PLUGIN_ACTIVATES)
            return false;
#if TEST_PLUGIN_GENERATOR
        if (auto factory = UIKit::CtrlFactory::Instance())
            factory->AddGenerator(L"PluginPanel",
                                  UIKit::CtrlGenerator<UIKit::PanelCtrlDescriptor, UIKit::PanelCtrl>::Make());
#endif
        LoadDescriptor();
        return true;
    }
    bool Deactivate() override
    {
        TK_LOG(Toolkit::LogInfo) << "deactivated " << GetName();
        return true;
    }
};

} // namespace

extern "C" __attribute__((visibility("default"))) bool GetPlugin(Toolkit::smart_ptr<UIKit::Plugin>& plugin,
                                                                 UIKit::PluginParameters*)
{
    plugin.reset(new TestPlugin());
    return true;
}

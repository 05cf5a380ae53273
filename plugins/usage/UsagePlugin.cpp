#include "UsagePlugin.h"

#include "UsageScreen.h"

#include "descriptors/ScreenDescriptor.h"
#include "factory/ControlIds.h"
#include "factory/CtrlGenerator.h"
#include "navigation/SequenceManager.h"
#include "plugins/PluginParameters.h"

namespace usageplugin {
namespace {

// The about screen needs no code of its own: a plain screen built from its
// template.
struct PlainScreen {
    UIKit::ScreenCtrl* operator()(wxWindow* parent, int id, const UIKit::BaseCtrlDescriptor& descriptor) const
    {
        return new UIKit::ScreenCtrl(parent, id, descriptor.GetBounds(), false);
    }
};

const pluginsupport::ScreenRoute c_routes[] = {
    {L"UsageScreen", L"TUsage", L"Usage", L"UsageMain",
     &UIKit::CtrlGenerator<UIKit::ScreenDescriptor, UsageScreen>::Make},
    {L"AboutScreen", L"TAbout", L"About", L"AboutMain",
     &UIKit::CtrlGenerator<UIKit::ScreenDescriptor, UIKit::ScreenCtrl, PlainScreen>::Make},
};

} // namespace

UsagePlugin::UsagePlugin() : ScreenPlugin(L"usage", c_routes) {}

void UsagePlugin::Hotkey(const TString<wchar_t>& name)
{
    if (name == L"ShowUsage")
        if (auto sequences = UIKit::Singleton<UIKit::SequenceManager>::Instance())
            sequences->DoEvent(UIKit::ID_MAP);
}

} // namespace usageplugin

extern "C" __attribute__((visibility("default"))) bool GetPlugin(Toolkit::smart_ptr<UIKit::Plugin>& plugin,
                                                                 UIKit::PluginParameters*)
{
    plugin = Toolkit::smart_ptr<UIKit::Plugin>(new usageplugin::UsagePlugin());
    return true;
}

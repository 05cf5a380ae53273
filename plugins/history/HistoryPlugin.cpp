#include "HistoryPlugin.h"

#include "HistoryScreen.h"

#include "Devices/DeviceManager.h"
#include "Toolkit/PathManager.h"
#include "descriptors/ButtonCtrlDescriptor.h"
#include "descriptors/ScreenDescriptor.h"
#include "factory/ControlIds.h"
#include "factory/CtrlFactory.h"
#include "factory/CtrlGenerator.h"
#include "lists/LabeledListItemCtrl.h"
#include "navigation/ScreenManager.h"
#include "navigation/SequenceManager.h"
#include "plugins/PluginParameters.h"

#include <memory>

namespace historyplugin {
namespace {

const pluginsupport::ScreenRoute c_routes[] = {
    {HistoryScreen::c_strClass, L"THistory", L"History", L"HistoryMain",
     &UIKit::CtrlGenerator<UIKit::ScreenDescriptor, HistoryScreen>::Make},
};

std::unique_ptr<ConnectionHistory> s_history;

} // namespace

HistoryPlugin::HistoryPlugin() : ScreenPlugin(L"history", c_routes) {}

HistoryPlugin::~HistoryPlugin()
{
    stopRecording();
}

ConnectionHistory& HistoryPlugin::History()
{
    const TString<char> directory = Toolkit::PathManager::Instance().GetStateDir();
    if (!s_history || s_history->Directory() != directory)
        s_history = std::make_unique<ConnectionHistory>(directory);
    return *s_history;
}

bool HistoryPlugin::Activate()
{
    // Rows are built from the screen's row template, whose class must be
    // known before the templates are read.
    if (auto factory = UIKit::CtrlFactory::Instance())
        factory->AddGenerator(HistoryScreen::c_strRowClass,
                              UIKit::CtrlGenerator<UIKit::ButtonCtrlDescriptor, UIKit::LabeledListItemCtrl>::Make());
    ScreenPlugin::Activate();
    m_recorder = Toolkit::make_smart<ConnectionRecorder>([this](const HistoryEntry& entry) {
        m_gui.CallAfter([entry] { record(entry); });
    });
    Devices::DeviceManager::AddListener(m_recorder);
    return true;
}

bool HistoryPlugin::Deactivate()
{
    stopRecording();
    if (auto factory = UIKit::CtrlFactory::Instance())
        factory->RemoveGenerator(HistoryScreen::c_strRowClass);
    return ScreenPlugin::Deactivate();
}

void HistoryPlugin::stopRecording()
{
    if (!m_recorder)
        return;
    m_recorder->Detach();
    Devices::DeviceManager::RemoveListener(m_recorder);
    m_recorder = nullptr;
}

void HistoryPlugin::Hotkey(const TString<wchar_t>& name)
{
    if (name == L"ShowHistory")
        if (auto sequences = UIKit::Singleton<UIKit::SequenceManager>::Instance())
            sequences->DoEvent(UIKit::ID_BROWSE);
}

void HistoryPlugin::record(const HistoryEntry& entry)
{
    History().Append(entry);
    auto screens = UIKit::ScreenManager::Instance();
    if (auto* screen = dynamic_cast<HistoryScreen*>(screens ? screens->Get(HistoryScreen::c_strClass) : nullptr))
        screen->Refill();
}

} // namespace historyplugin

extern "C" __attribute__((visibility("default"))) bool GetPlugin(Toolkit::smart_ptr<UIKit::Plugin>& plugin,
                                                                 UIKit::PluginParameters*)
{
    plugin = Toolkit::smart_ptr<UIKit::Plugin>(new historyplugin::HistoryPlugin());
    return true;
}

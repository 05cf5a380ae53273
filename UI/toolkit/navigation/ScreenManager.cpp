#include "navigation/ScreenManager.h"

#include "Toolkit/ILogger.h"
#include "factory/CtrlFactory.h"
#include "frames/IDashboard.h"
#include "navigation/ScreenCtrl.h"

namespace UIKit {

ScreenCtrl* ScreenManager::Get(const TString<wchar_t>& name)
{
    const auto found = m_screens.find(name);
    if (found != m_screens.end())
        return found->second;
    Control* placeholder = IDashboard::s_pCurrent ? IDashboard::s_pCurrent->GetControlPlaceholder() : nullptr;
    auto factory = CtrlFactory::Instance();
    if (!placeholder || !factory) {
        TK_LOG(Toolkit::LogError) << "Screen " << name << " cannot be built: no dashboard placeholder or factory";
        return nullptr;
    }
    // The factory reports a missing template; a failure is not remembered.
    ScreenCtrl* screen = factory->CreateControl<ScreenCtrl>(name, placeholder, wxID_ANY);
    if (screen)
        m_screens.emplace(name, screen);
    return screen;
}

} // namespace UIKit

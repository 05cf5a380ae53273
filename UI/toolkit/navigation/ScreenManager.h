#pragma once
#include "module/Export.h"
// The registry of screens by name. A screen is built from its template the
// first time it is asked for, inside the dashboard's placeholder, and the
// same screen is handed out from then on. The screens are windows of the
// placeholder, which destroys them; the registry only points at them.
#include "Toolkit/TString.h"
#include "module/Singleton.h"

#include <map>

namespace UIKit {

class ScreenCtrl;

class UIKIT_API ScreenManager : public Singleton<ScreenManager> {
public:
    // The screen of that name, built (hidden) on first use; null when there
    // is no placeholder or the template does not make a screen, in which
    // case a later call tries again.
    ScreenCtrl* Get(const TString<wchar_t>& name);
    size_t Size() const { return m_screens.size(); }

private:
    std::map<TString<wchar_t>, ScreenCtrl*> m_screens;
};

} // namespace UIKit

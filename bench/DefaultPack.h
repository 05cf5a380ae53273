#pragma once
// The appearance, the control factory and the template registry on the
// default pack in English, with every control class of the library registered, for as
// long as a benchmark runs.
#include "appearance/Appearance.h"
#include "app/LibraryControls.h"
#include "descriptors/TemplateManager.h"
#include "factory/CtrlFactory.h"

#include <cstdlib>

namespace bench {

class DefaultPack {
public:
    DefaultPack()
    {
        using namespace UIKit;
        setenv("UIKIT_APPEARANCES_DIR", UIKIT_SOURCE_DIR "/appearances", 1);
        Appearance::CreateInstance();
        CtrlFactory::CreateInstance();
        TemplateManager::CreateInstance();
        Appearance::CmdLine_OptionCulture = L"en";
        m_ok = Appearance::Instance()->Init();
        auto factory = CtrlFactory::Instance();
        RegisterLibraryControls(*factory);
        factory->SetResources(Appearance::Instance().get());
    }
    ~DefaultPack()
    {
        UIKit::TemplateManager::ReleaseInstance();
        UIKit::CtrlFactory::ReleaseInstance();
        UIKit::Appearance::ReleaseInstance();
        unsetenv("UIKIT_APPEARANCES_DIR");
    }
    DefaultPack(const DefaultPack&) = delete;
    DefaultPack& operator=(const DefaultPack&) = delete;

    bool Ok() const { return m_ok; }
    UIKit::Appearance* Resources() const { return UIKit::Appearance::Instance().get(); }

private:
    bool m_ok = false;
};

} // namespace bench

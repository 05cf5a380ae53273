#include "NativeTheme.h"

#include <cstdlib>

// Generated from theme/native.gresource.xml.
void host_theme_register_resource();

namespace host {

void UseNativeTheme()
{
    if (std::getenv("GTK_THEME"))
        return;
    host_theme_register_resource();
    // GTK reads the name again whenever the theme settings change, so it
    // stays set for the life of the process.
    setenv("GTK_THEME", "UIKitSkin", 0);
}

} // namespace host

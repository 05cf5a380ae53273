#include "Toolkit/PluginAction.h"

namespace Toolkit {

PluginAction::~PluginAction()
{
    DynamicLibrary::Unload(m_handle);
}

} // namespace Toolkit

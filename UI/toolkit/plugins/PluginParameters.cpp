#include "plugins/PluginParameters.h"

#include "appearance/Appearance.h"

namespace UIKit {

PluginParameters::PluginParameters(Toolkit::smart_ptr<Appearance> appearance) : m_appearance(std::move(appearance)) {}

PluginParameters::~PluginParameters() = default;

} // namespace UIKit

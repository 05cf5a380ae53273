#pragma once
// The settings' part of the demonstration: the settings opened from the
// home screen, the language page, the root page, a sub-page, and the home
// screen after French was chosen on the language page.
#include "Tour.h"

#include <vector>

namespace host {

std::vector<TourStep> SettingsTourSteps();

} // namespace host

#pragma once
// The history's part of the demonstration: the connection history screen
// in English with a few sessions, then sorted by volume and filtered,
// then in French.
#include "Tour.h"

#include <vector>

namespace host {

std::vector<TourStep> HistoryTourSteps();

} // namespace host

#pragma once
// Demonstration without a person: moves from screen to screen by clicking
// and pressing keys, saves a screenshot of the whole screen after each step,
// and closes the window.
#include "Toolkit/TString.h"

namespace host {

class DashboardFrame;

class Tour {
public:
    static void Start(DashboardFrame& dashboard, const TString<char>& folder);
};

} // namespace host

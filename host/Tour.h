#pragma once
// Demonstration without a person: clicks through the dashboard, saves a
// screenshot of the whole screen after each step, and closes the window.
#include "Toolkit/TString.h"

namespace host {

class DashboardFrame;

class Tour {
public:
    static void Start(DashboardFrame& dashboard, const TString<char>& folder);
};

} // namespace host

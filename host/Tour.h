#pragma once
// Demonstration without a person: moves from screen to screen by clicking
// and pressing keys, saves a screenshot of the whole screen after each step
// (the folder's index.html shows them all), then hands over to the devices'
// tour, which closes the window.
#include "Toolkit/TString.h"

#include <functional>

namespace host {

class DashboardFrame;

// One step of the screen tour: the action that brings a screen up, as a
// user would, then a screenshot named after that screen: "<screen>.png",
// with "-fr" before ".png" for a screen shown in French.
struct TourStep {
    const char* screen;
    std::function<void(DashboardFrame&)> action;
};

class Tour {
public:
    static void Start(DashboardFrame& dashboard, const TString<char>& folder);
};

} // namespace host

#pragma once
// The settings' part of the demonstration: the settings opened from the
// home screen, the language page, the root page, a sub-page, and the home
// screen after French was chosen on the language page.
#include <functional>
#include <vector>

namespace host {

class DashboardFrame;

struct SettingsTourStep {
    const char* file;
    std::function<void(DashboardFrame&)> action;
};

std::vector<SettingsTourStep> SettingsTourSteps();

} // namespace host

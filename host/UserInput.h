#pragma once
// Input as the user gives it, for the tour and the tests: a click that
// starts at the button and travels up the windows, and a key pressed over
// the main window.
namespace host {

class DashboardFrame;

// Clicks the button with that id: one of the screen on show first (other
// screens may use the same ids), else any of the window. False when there
// is no such button.
bool Click(DashboardFrame& frame, int id);
void PressKey(DashboardFrame& frame, int key);

} // namespace host

#pragma once
// --measure-startup: the time from the start of the process to the first
// paint of the main window, printed once that paint is done.

#include "ProcessClock.h"

class wxWindow;

namespace host {

// Logs (as information, seen with --verbose) how long the start took up to
// `stage`, so a slow step of the start-up shows.
void LogStartupStage(const char* stage);

// Prints "<ms> ms" on stdout after the window's first paint has been
// handled, then calls `done` (which closes the application).
void ReportFirstPaint(wxWindow& window, void (*done)());

} // namespace host

#pragma once
// --measure-startup: the time from the start of the process to the first
// paint of the main window, printed once that paint is done.

class wxWindow;

namespace host {

// Milliseconds since the process started.
double MillisecondsSinceProcessStart();

// Processor time the process has used so far, in milliseconds.
double ProcessorMilliseconds();

// Logs (as information, seen with --verbose) how long the start took up to
// `stage`, so a slow step of the start-up shows.
void LogStartupStage(const char* stage);

// Prints "<ms> ms" on stdout after the window's first paint has been
// handled, then calls `done` (which closes the application).
void ReportFirstPaint(wxWindow& window, void (*done)());

} // namespace host

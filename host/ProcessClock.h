#pragma once
// Time since the process started, as the start-up measurements read it.
// Depends on nothing but the C++ and POSIX libraries, so a bare program can
// measure its own start the same way.

namespace host {

// Milliseconds since the process started.
double MillisecondsSinceProcessStart();

// Processor time the process has used so far, in milliseconds.
double ProcessorMilliseconds();

} // namespace host

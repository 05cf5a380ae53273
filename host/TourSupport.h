#pragma once
// What both tours need: a screenshot of the whole screen, and a timer that
// drives the tour for as long as its window lives.
#include <wx/string.h>

class wxTimer;
class wxWindow;

namespace host {

// Reads the whole screen from the X server, so the window's cut outline
// shows as it does to the user; false when it cannot be read or saved.
bool SaveScreenshot(const wxString& path);

// Starts the timer every `milliseconds`; the timer is deleted with the window.
void RunWhileWindowLives(wxWindow& window, wxTimer* timer, int milliseconds);

} // namespace host

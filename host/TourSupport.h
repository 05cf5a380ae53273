#pragma once
// What the tours need: a screenshot of the whole screen that joins the
// folder's index page, and a timer that drives the tour for as long as its
// window lives.
#include <wx/string.h>

#include <vector>

class wxTimer;
class wxWindow;

namespace host {

// Reads the whole screen from the X server, so the window's cut outline
// shows as it does to the user, and writes it as a PNG at `path`; then
// writes index.html beside it again, showing every PNG of that folder in
// the order the tour took them, each captioned with its file name. False
// when the screen cannot be read or saved.
bool SaveScreenshot(const wxString& path);

// The page that shows every PNG of `folder`: first those named in `order`
// (the tour's order), then the others by name. False when it cannot be
// written.
bool WriteScreenshotIndex(const wxString& folder, const std::vector<wxString>& order);

// Starts the timer every `milliseconds`; the timer is deleted with the window.
void RunWhileWindowLives(wxWindow& window, wxTimer* timer, int milliseconds);

} // namespace host

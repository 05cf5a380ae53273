#pragma once
// The devices' part of the demonstration without a person: starts the
// simulated modems, then waits for each thing they make the host show (a
// device found, the PIN screen with the attempts left, the PUK screen, the
// flight-mode question), answering the screens as a user would, saves a
// screenshot of the whole screen for each, and closes the window. It plays
// the default scenario, after the screen tour: the devices' requests would
// otherwise take the screens over in the middle of it.
#include "Options.h"

class wxTopLevelWindow;

namespace host {

class DeviceTour {
public:
    static void Start(wxTopLevelWindow& window, const TString<char>& folder);
};

} // namespace host

#pragma once
// The devices' part of the demonstration without a person: starts the
// simulated modems, then waits for each screen they make the host show (no
// device, an unknown one, a device found and starting, PIN and PUK, ready,
// a refused connection, connecting, connected, roaming, disconnecting,
// flight mode, SIM error), answering the screens as a user would, saves a
// screenshot of the whole screen for each, named after the screen, and
// closes the window. It plays the tour scenario, after the screen tour: the
// devices' requests would otherwise take the screens over in the middle of it.
#include "Options.h"

class wxTopLevelWindow;

namespace host {

class DeviceTour {
public:
    static void Start(wxTopLevelWindow& window, const TString<char>& folder);
};

} // namespace host

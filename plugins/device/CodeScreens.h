#pragma once
// The screens that ask for the SIM's codes: the PIN, and the PUK with the
// new PIN. Both tell how many attempts are left (when the device says) and
// whether the last code was refused; OK hands the typed codes to the
// device controller for the device that asked, and goes back.
#include "RequestScreen.h"

namespace deviceplugin {

class CodeScreen : public RequestScreen {
public:
    using RequestScreen::RequestScreen;

protected:
    void ShowRequest(const UIKit::DeviceNameParameter& request) override;
    // Wipes a code once it has been handed over.
    static void Wipe(TString<char>& code);
};

class PinScreen : public CodeScreen {
public:
    using CodeScreen::CodeScreen;
    void OnOK(wxCommandEvent& event) override;
};

class PukScreen : public CodeScreen {
public:
    using CodeScreen::CodeScreen;
    void OnOK(wxCommandEvent& event) override;
};

} // namespace deviceplugin

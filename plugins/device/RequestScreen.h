#pragma once
// A screen that asks the user something about one device for the device
// controller. The request it answers comes with the state that shows it;
// each time the screen comes into view it takes the request, names the
// device, and lets the screen fill in the rest. Once answered, the screen
// goes back to the sequence the user was in.
#include "navigation/DeviceNameParameter.h"
#include "navigation/ScreenCtrl.h"

namespace deviceplugin {

class RequestScreen : public UIKit::ScreenCtrl {
public:
    RequestScreen(wxWindow* parent, int id, const wxRect& bounds);

    void ScreenSlideEnter() override;
    // The SIM error screen has nothing to answer: OK only goes back.
    void OnOK(wxCommandEvent& event) override;

protected:
    // The request now on show; called when the screen comes into view.
    virtual void ShowRequest(const UIKit::DeviceNameParameter& /*request*/) {}

    // The device that asked (0 when the screen shows no request).
    unsigned long long DeviceId() const { return m_request ? m_request->GetDeviceId() : 0; }
    // A string of the current language.
    static TString<wchar_t> Text(const char* key);
    void SetText(const wchar_t* control, const TString<wchar_t>& text);
    // The code typed in a text box, as the device library takes it; the box
    // is emptied.
    TString<char> TakeCode(const wchar_t* box);
    // Back to where the user was; the request is forgotten.
    void Leave();

private:
    Toolkit::smart_ptr<UIKit::DeviceNameParameter> m_request;
};

} // namespace deviceplugin

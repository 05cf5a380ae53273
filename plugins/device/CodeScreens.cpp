#include "CodeScreens.h"

#include "device/DCControler.h"
#include "navigation/SecurityCodeRequiredParameter.h"

#include <algorithm>
#include <string>

namespace deviceplugin {

void CodeScreen::ShowRequest(const UIKit::DeviceNameParameter& request)
{
    const auto* code = dynamic_cast<const UIKit::SecurityCodeRequiredParameter*>(&request);
    if (!code)
        return;
    TString<wchar_t> attempts = Text("LB_DEVICE_ATTEMPTS_UNKNOWN");
    if (code->GetAttempts() != Devices::c_attemptsUnknown) {
        attempts = Text("LB_DEVICE_ATTEMPTS");
        const auto at = attempts.find(L"%u");
        if (at != TString<wchar_t>::npos)
            attempts.replace(at, 2, std::to_wstring(code->GetAttempts()));
    }
    SetText(L"Attempts", attempts);
    SetText(L"Refused", code->IsRetry() ? Text("LB_DEVICE_CODE_REFUSED") : TString<wchar_t>());
}

void CodeScreen::Wipe(TString<char>& code)
{
    std::fill(code.begin(), code.end(), '\0');
    code.clear();
}

void PinScreen::OnOK(wxCommandEvent& /*event*/)
{
    TString<char> pin = TakeCode(L"PinCode");
    auto controller = UIKit::Singleton<UIKit::DCControler>::Instance();
    if (pin.empty() || !controller || !DeviceId())
        return;
    controller->ProvidePINCode(DeviceId(), pin);
    Wipe(pin);
    Leave();
}

void PukScreen::OnOK(wxCommandEvent& /*event*/)
{
    TString<char> puk = TakeCode(L"PukCode");
    TString<char> newPin = TakeCode(L"NewPinCode");
    auto controller = UIKit::Singleton<UIKit::DCControler>::Instance();
    if (!puk.empty() && !newPin.empty() && controller && DeviceId()) {
        controller->ProvidePUKCode(DeviceId(), puk, newPin);
        Leave();
    }
    Wipe(puk);
    Wipe(newPin);
}

} // namespace deviceplugin

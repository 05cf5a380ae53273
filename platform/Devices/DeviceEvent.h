#pragma once
// The listener interface of the device library and the values it passes.
//
// Every callback arrives on a device's own thread. Requests that need the
// user (a SIM code, the flight-mode decision) follow one pattern: the
// listener answers at once, with the answer or without one, and returns;
// the device asks again a little later, until it gets an answer, the
// listener sets stop, or the device goes away (then the request is first
// cancelled). A listener must never wait for the user inside a callback.
#include "Devices/ModemEnums.h"
#include "Toolkit/TString.h"

namespace Devices {

class Device;
class GhostDevice;

// Progress of a device's initialisation, reported per port.
enum InitializationStep : int {
    InitStepPortOpened = 0,
    InitStepIdentified = 1,    // manufacturer, model and IMEI read
    InitStepSimDetected = 2,
    InitStepSimUnlocked = 3,
    InitStepRadioChecked = 4,
    InitStepFeaturesRead = 5,
    InitStepCompleted = 6,
    // The radio is held off by a hardware switch: software cannot leave
    // flight mode, so the device stays in it without asking the user.
    InitStepRadioHardwareOff = 7,
    InitStepSimMissing = 8,    // failed: no SIM in the device
    InitStepSimFailure = 9,    // failed: the SIM does not answer or is blocked
};

// The answer to "the device is in flight mode".
enum FlightMode : int {
    FlightModeUnanswered = 0,
    FlightModeStay = 1,        // keep the radio off
    FlightModeLeave = 2,       // switch the radio on
};

// What a code request asks for: a kind bit (PIN or PUK family) over the
// lock it clears, so SecurityCodeSimPin & 0xFFFF is LockSimPin.
enum SecurityCode : unsigned int {
    SecurityCodeNone = 0,
    SecurityCodePinBit = 0x20000000u,
    SecurityCodePukBit = 0x40000000u,
    SecurityCodeSimPin = SecurityCodePinBit | LockSimPin,
    SecurityCodeSimPin2 = SecurityCodePinBit | LockSimPin2,
    SecurityCodeSimPuk = SecurityCodePukBit | LockSimPuk,
    SecurityCodeSimPuk2 = SecurityCodePukBit | LockSimPuk2,
};

// Features a device offers and the application uses, as bits; discovery
// is started with the bits wanted (0xFFFFFFFF: all).
enum UsedFeatures : unsigned int {
    FeatureNone = 0,
    FeatureData = 1u << 0,
    FeatureSms = 1u << 1,
    FeatureVoice = 1u << 2,
    FeatureUssd = 1u << 3,
    FeatureContacts = 1u << 4,
    FeatureLocation = 1u << 5,
    FeatureAll = 0xFFFFFFFFu,
};

// Attempts left on a code when the device does not say.
constexpr unsigned int c_attemptsUnknown = 0xFFFFFFFFu;

class DeviceEvent {
public:
    virtual ~DeviceEvent() = default;

    virtual void OnDeviceFound(Device& /*device*/) {}
    virtual void OnDeviceLost(Device& /*device*/) {}
    // State that changes often: signal, connection, traffic counters.
    virtual void OnDeviceUpdated(Device& /*device*/) {}
    // Descriptive information: operator, access technology, roaming.
    virtual void OnDeviceInformationUpdated(Device& /*device*/) {}

    virtual void OnPortAdded(Device& /*device*/, const TString<char>& /*port*/) {}
    virtual void OnPortLost(Device& /*device*/, const TString<char>& /*port*/) {}
    virtual void OnPortInitProgress(Device& /*device*/, const TString<char>& /*port*/, InitializationStep /*step*/) {}
    virtual void OnDeviceInitCompleted(Device& /*device*/) {}

    // The SIM wants its PIN. attempts may be c_attemptsUnknown; retry is
    // true when the previous code was refused. Set pin to answer, stop to
    // give up; leave both to be asked again.
    virtual void OnPinCodeRequested(Device& /*device*/, SecurityCode /*code*/, unsigned int /*attempts*/,
                                    TString<char>& /*pin*/, bool /*retry*/, bool& /*stop*/) {}
    // The SIM wants its PUK and the new PIN that replaces the blocked one.
    virtual void OnPukCodeRequested(Device& /*device*/, SecurityCode /*code*/, unsigned int /*attempts*/,
                                    TString<char>& /*puk*/, TString<char>& /*newPin*/, bool /*retry*/,
                                    bool& /*stop*/) {}
    virtual void OnPinPukCodeRequestCancelled(Device& /*device*/) {}

    virtual void OnGhostDeviceFound(GhostDevice& /*ghost*/) {}
    virtual void OnGhostDeviceLost(GhostDevice& /*ghost*/) {}

    // The device is in flight mode: set mode to answer, leave it
    // FlightModeUnanswered to be asked again.
    virtual void OnDeviceInFlightMode(Device& /*device*/, FlightMode& /*mode*/) {}
    virtual void OnDeviceInFlightModeCancelled(Device& /*device*/) {}

    virtual void OnDeviceUsedFeaturesChanged(Device& /*device*/, unsigned int /*features*/) {}
    virtual void OnError(Device& /*device*/, const TString<wchar_t>& /*message*/) {}
};

} // namespace Devices

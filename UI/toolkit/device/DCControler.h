#pragma once
#include "module/Export.h"
// The bridge between the device library and the user interface. Device
// callbacks arrive on the devices' own threads; the controller turns each
// into an event posted to its listeners (windows, and itself), so that the
// user interface reacts on the GUI thread. It narrows the devices present
// to one selected device, and for the requests that need the user (PIN,
// PUK, flight mode) it brings up the screen that asks, keeps the answer
// per device and hands it back when the device asks again. A callback
// never waits for the GUI thread and never touches a window.
//
// Locks, always in this order: selection lock (changes of the selected
// device), state lock (selected device, history, codes, request), then the
// listeners lock and the dispatcher's own lock. The codes never reach a log.
#include "Devices/Device.h"
#include "Devices/DeviceEvent.h"
#include "Toolkit/EventObject.h"
#include "Toolkit/Mutex.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "device/DeviceMarks.h"
#include "lists/EventDispatcher.h"
#include "module/Singleton.h"
#include "navigation/IStateParameter.h"

#include <wx/event.h>

#include <functional>
#include <list>
#include <map>
#include <vector>

namespace UIKit {

class UIKIT_API DCControler : public wxEvtHandler,
                              public EventDispatcher,
                              public Devices::DeviceEvent,
                              public Singleton<DCControler> {
public:
    // The user's answers for one device; wiped when dropped.
    struct DeviceCodes {
        DeviceCodes() = default;
        DeviceCodes(const DeviceCodes&) = delete;
        DeviceCodes& operator=(const DeviceCodes&) = delete;
        ~DeviceCodes();
        TString<char> pin; // in a PUK exchange, the new PIN
        TString<char> puk;
        Devices::FlightMode flightMode = Devices::FlightModeUnanswered;
    };
    using DeviceMap = std::map<unsigned long long, Toolkit::smart_ptr<Devices::Device>>;

    static const wxEventType EVT_DEVICE_FOUND;
    static const wxEventType EVT_DEVICE_LOST;
    static const wxEventType EVT_DEVICE_UPDATED;
    static const wxEventType EVT_DEVICE_INFO;
    static const wxEventType EVT_DEVICE_GHOST_FOUND;
    static const wxEventType EVT_DEVICE_GHOST_LOST;
    static const wxEventType EVT_DEVICE_PIN_REQUESTED;
    static const wxEventType EVT_DEVICE_PUK_REQUESTED;
    static const wxEventType EVT_DEVICE_PIN_PUK_CANCELLED;
    static const wxEventType EVT_DEVICE_INIT_PROGRESS;
    // The navigation event's own type: the controller posts it to itself.
    static const wxEventType& EVT_SEQUENCE_DO_EVENT;
    static const wxEventType EVT_SEQUENCE_PREVIOUS_SEQUENCE;
    static const wxEventType EVT_DEVICE_IN_FLIGHT_MODE;
    static const wxEventType EVT_DEVICE_IN_FLIGHT_MODE_CANCELLED;
    static const wxEventType EVT_DEVICE_USED_FEATURES_CHANGED;

    DCControler();
    ~DCControler() override;

    // GUI thread, by the host. Start listens to the device manager and
    // starts discovery; Stop detaches the selected device from the network,
    // makes every later code request give up, and stops listening.
    void Start();
    void Stop();

    // Any thread.
    Toolkit::smart_ptr<Devices::Device> GetSelectedDevice();
    bool IsSelectedDevice(unsigned long long id);
    // True when no device is selected or this one is.
    bool CanDispatchDeviceEvent(unsigned long long id);
    void GetDevices(DeviceMap& devices);
    Toolkit::smart_ptr<Devices::Device> GetDevice(unsigned long long id);
    Devices::FlightMode GetFlightMode(unsigned long long id);
    // The stored PIN, handed over once: the device's answers are dropped.
    TString<char> GetPINCode(unsigned long long id);
    // The stored PUK, with the new PIN in newPin; the answers are dropped.
    TString<char> GetPUKCode(unsigned long long id, TString<char>& newPin);

    // The user's answers, from the screens that asked (any thread). An
    // answer for a device that is not present is dropped at once.
    void ProvidePINCode(unsigned long long id, const TString<char>& pin);
    void ProvidePUKCode(unsigned long long id, const TString<char>& puk, const TString<char>& newPin);
    void ProvideFlightMode(unsigned long long id, Devices::FlightMode mode);

    // Listeners called on the device's thread: found and lost for the
    // selected device, updates for every device.
    void Register(Toolkit::smart_ptr<Devices::DeviceEvent> listener);
    void Unregister(Toolkit::smart_ptr<Devices::DeviceEvent> listener);

    // Id 0 clears the selection.
    void SetSelectedDevice(unsigned long long id);
    void DropDevice(unsigned long long id);
    // Dispatched only when CanDispatchDeviceEvent(id).
    void DispatchDeviceEvent(wxEventType type, unsigned long long id);

    void OnDeviceFound(Devices::Device& device) override;
    void OnDeviceLost(Devices::Device& device) override;
    void OnDeviceUpdated(Devices::Device& device) override;
    void OnDeviceInformationUpdated(Devices::Device& device) override;
    void OnPinCodeRequested(Devices::Device& device, Devices::SecurityCode code, unsigned int attempts,
                            TString<char>& pin, bool retry, bool& stop) override;
    void OnPukCodeRequested(Devices::Device& device, Devices::SecurityCode code, unsigned int attempts,
                            TString<char>& puk, TString<char>& newPin, bool retry, bool& stop) override;
    void OnPinPukCodeRequestCancelled(Devices::Device& device) override;
    void OnGhostDeviceFound(Devices::GhostDevice& ghost) override;
    void OnGhostDeviceLost(Devices::GhostDevice& ghost) override;
    void OnPortInitProgress(Devices::Device& device, const TString<char>& port,
                            Devices::InitializationStep step) override;
    void OnDeviceInFlightMode(Devices::Device& device, Devices::FlightMode& mode) override;
    void OnDeviceInFlightModeCancelled(Devices::Device& device) override;
    void OnDeviceUsedFeaturesChanged(Devices::Device& device, unsigned int features) override;

    // GUI thread: the navigation the callbacks asked for.
    virtual void OnSequenceDoEvent(wxCommandEvent& event);
    virtual void OnSequencePrevious(wxCommandEvent& event);

private:
    using Listeners = std::vector<Toolkit::smart_ptr<Devices::DeviceEvent>>;

    void codeRequest(Devices::Device& device, Devices::SecurityCode code, unsigned int attempts, bool retry,
                     const std::function<void(unsigned long long)>& collect, bool& stop);
    bool collectAnswer(unsigned long long id, const std::function<void()>& collect);
    void requestScreen(unsigned long long id, int stateId, Toolkit::smart_ptr<IStateParameter> parameter);
    // Ends the request shown for this device, if one is; true when it did.
    bool endRequest(unsigned long long id);
    bool forgetDevice(unsigned long long id);
    void dispatch(wxEventType type, unsigned long long id);
    void navigate(int stateId, Toolkit::smart_ptr<IStateParameter> parameter);
    void leaveRequestScreen();
    Listeners listeners();

    const TString<char> m_name = "DCControler";
    Listeners m_listeners;
    DeviceMarks m_marks;
    std::list<unsigned long long> m_history; // selected before the current one, oldest first
    Toolkit::smart_ptr<Devices::Device> m_selected;
    Toolkit::Mutex m_selectionLock;
    Toolkit::Mutex m_stateLock;
    Toolkit::Mutex m_listenersLock;
    Toolkit::EventObject m_answerReady{false, false};
    Toolkit::EventObject m_stopping{true, false};
    Toolkit::EventObject m_requestShown{true, false};
    // The device whose request screen is up (0: none); with m_requestShown.
    unsigned long long m_requestDevice = 0;
    std::map<unsigned long long, DeviceCodes> m_codes;

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit

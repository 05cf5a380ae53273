#include "device/DCControler.h"

#include "Detection/DiscoveryControl.h"
#include "Devices/DeviceManager.h"
#include "Devices/NetworkManager.h"
#include "Toolkit/ILogger.h"
#include "device/DeviceEvent.h"
#include "device/DeviceInitEvent.h"
#include "navigation/DeviceInitializationErrorParameter.h"
#include "navigation/Sequence.h"
#include "navigation/SecurityCodeRequiredParameter.h"
#include "navigation/SequenceDoEventEvent.h"
#include "navigation/SequenceManager.h"
#include "xml/SymbolicIds.h"

#include <algorithm>

namespace UIKit {

const wxEventType DCControler::EVT_DEVICE_FOUND = wxNewEventType();
const wxEventType DCControler::EVT_DEVICE_LOST = wxNewEventType();
const wxEventType DCControler::EVT_DEVICE_UPDATED = wxNewEventType();
const wxEventType DCControler::EVT_DEVICE_INFO = wxNewEventType();
const wxEventType DCControler::EVT_DEVICE_GHOST_FOUND = wxNewEventType();
const wxEventType DCControler::EVT_DEVICE_GHOST_LOST = wxNewEventType();
const wxEventType DCControler::EVT_DEVICE_PIN_REQUESTED = wxNewEventType();
const wxEventType DCControler::EVT_DEVICE_PUK_REQUESTED = wxNewEventType();
const wxEventType DCControler::EVT_DEVICE_PIN_PUK_CANCELLED = wxNewEventType();
const wxEventType DCControler::EVT_DEVICE_INIT_PROGRESS = wxNewEventType();
const wxEventType& DCControler::EVT_SEQUENCE_DO_EVENT = SequenceDoEventEvent::EVT_SEQUENCE_DO_EVENT;
const wxEventType DCControler::EVT_SEQUENCE_PREVIOUS_SEQUENCE = wxNewEventType();
const wxEventType DCControler::EVT_DEVICE_IN_FLIGHT_MODE = wxNewEventType();
const wxEventType DCControler::EVT_DEVICE_IN_FLIGHT_MODE_CANCELLED = wxNewEventType();
const wxEventType DCControler::EVT_DEVICE_USED_FEATURES_CHANGED = wxNewEventType();

wxBEGIN_EVENT_TABLE(DCControler, wxEvtHandler)
    wx__DECLARE_EVT0(DCControler::EVT_SEQUENCE_DO_EVENT, wxCommandEventHandler(DCControler::OnSequenceDoEvent))
    wx__DECLARE_EVT0(DCControler::EVT_SEQUENCE_PREVIOUS_SEQUENCE,
                     wxCommandEventHandler(DCControler::OnSequencePrevious))
wxEND_EVENT_TABLE()

namespace {

// A browser sequence is left alone when a request is cancelled: the user
// went there on purpose.
const wchar_t* const c_strBrowserSequence = L"Browser";

void wipe(TString<char>& code)
{
    std::fill(code.begin(), code.end(), '\0');
    code.clear();
}

void store(TString<char>& slot, const TString<char>& code)
{
    wipe(slot);
    slot = code;
}

// Moves a code into the device library's slot and wipes the copy.
void handOver(TString<char>& slot, TString<char> code)
{
    store(slot, code);
    wipe(code);
}

} // namespace

DCControler::DeviceCodes::~DeviceCodes()
{
    wipe(pin);
    wipe(puk);
}

DCControler::DCControler()
{
    AddListener(this);
}

DCControler::~DCControler()
{
    RemoveListener(this);
}

// ---- lifecycle ----

void DCControler::Start()
{
    const auto self = Instance();
    if (self.get() != this) {
        TK_LOG(Toolkit::LogError) << "only the module's controller listens to the devices";
        return;
    }
    Devices::DeviceManager::AddListener(self);
    Detection::DiscoveryControl::AddEventListener(Devices::DeviceManager::Instance());
    Detection::DiscoveryControl::Start(0xFFFFFFFF);
    DispatchDeviceEvent(EVT_DEVICE_INFO, 0);
}

void DCControler::Stop()
{
    if (const auto device = GetSelectedDevice()) {
        const auto network = device->GetNetworkManager();
        const auto state = network ? network->GetState() : Devices::DeviceStateUnknown;
        const bool connection = state == Devices::DeviceStateConnecting || state == Devices::DeviceStateConnected;
        if (network && network->IsActive() && connection &&
            network->Disconnect(Devices::DisconnectApplicationStopping) == 0)
            TK_LOG(Toolkit::LogInfo) << "*** Device detached from the network. ***";
    }
    m_stopping.Set();
    if (Detection::DiscoveryControl::IsStarted()) {
        Detection::DiscoveryControl::Stop();
        Detection::DiscoveryControl::RemoveEventListener(Devices::DeviceManager::Instance());
    }
    if (const auto self = Instance(); self.get() == this)
        Devices::DeviceManager::RemoveListener(self);
}

// ---- queries ----

Toolkit::smart_ptr<Devices::Device> DCControler::GetSelectedDevice()
{
    Toolkit::MutexLocker lock(m_stateLock);
    return m_selected;
}

bool DCControler::IsSelectedDevice(unsigned long long id)
{
    Toolkit::MutexLocker lock(m_stateLock);
    return m_selected && m_selected->GetId() == id;
}

bool DCControler::CanDispatchDeviceEvent(unsigned long long id)
{
    Toolkit::MutexLocker lock(m_stateLock);
    return !m_selected || m_selected->GetId() == id;
}

void DCControler::GetDevices(DeviceMap& devices)
{
    Devices::DeviceManager::GetDevicesMap(devices);
}

Toolkit::smart_ptr<Devices::Device> DCControler::GetDevice(unsigned long long id)
{
    return Devices::DeviceManager::GetDevice(id);
}

Devices::FlightMode DCControler::GetFlightMode(unsigned long long id)
{
    Toolkit::MutexLocker lock(m_stateLock);
    const auto it = m_codes.find(id);
    return it == m_codes.end() ? Devices::FlightModeUnanswered : it->second.flightMode;
}

TString<char> DCControler::GetPINCode(unsigned long long id)
{
    Toolkit::MutexLocker lock(m_stateLock);
    const auto it = m_codes.find(id);
    if (it == m_codes.end())
        return {};
    TString<char> pin = it->second.pin;
    m_codes.erase(it);
    return pin;
}

TString<char> DCControler::GetPUKCode(unsigned long long id, TString<char>& newPin)
{
    Toolkit::MutexLocker lock(m_stateLock);
    const auto it = m_codes.find(id);
    if (it == m_codes.end())
        return {};
    TString<char> puk = it->second.puk;
    store(newPin, it->second.pin);
    m_codes.erase(it);
    return puk;
}

// ---- answers ----

void DCControler::ProvidePINCode(unsigned long long id, const TString<char>& pin)
{
    ProvidePUKCode(id, TString<char>(), pin);
}

void DCControler::ProvidePUKCode(unsigned long long id, const TString<char>& puk, const TString<char>& newPin)
{
    if (!GetDevice(id)) {
        TK_LOG(Toolkit::LogInfo) << "a code for device " << id << ", which is not present, is dropped";
        return;
    }
    {
        Toolkit::MutexLocker lock(m_stateLock);
        auto& codes = m_codes[id];
        store(codes.puk, puk);
        store(codes.pin, newPin);
    }
    m_answerReady.Set();
}

void DCControler::ProvideFlightMode(unsigned long long id, Devices::FlightMode mode)
{
    if (!GetDevice(id))
        return;
    {
        Toolkit::MutexLocker lock(m_stateLock);
        m_codes[id].flightMode = mode;
    }
    m_answerReady.Set();
}

// ---- device-side listeners ----

void DCControler::Register(Toolkit::smart_ptr<Devices::DeviceEvent> listener)
{
    Toolkit::MutexLocker lock(m_listenersLock);
    m_listeners.push_back(std::move(listener));
}

void DCControler::Unregister(Toolkit::smart_ptr<Devices::DeviceEvent> listener)
{
    Toolkit::MutexLocker lock(m_listenersLock);
    const auto it = std::find(m_listeners.begin(), m_listeners.end(), listener);
    if (it != m_listeners.end())
        m_listeners.erase(it);
}

// Called outside the listeners lock, so a listener may register or leave.
DCControler::Listeners DCControler::listeners()
{
    Toolkit::MutexLocker lock(m_listenersLock);
    return m_listeners;
}

// ---- selection ----

void DCControler::SetSelectedDevice(unsigned long long id)
{
    Toolkit::MutexLocker selection(m_selectionLock);
    Toolkit::smart_ptr<Devices::Device> previous;
    {
        Toolkit::MutexLocker state(m_stateLock);
        if (m_selected ? m_selected->GetId() == id : id == 0)
            return;
        previous = m_selected;
        m_selected = Devices::DeviceManager::GetDevice(id);
    }
    // Found and lost are about the selected device by construction (before
    // and after the change), so they bypass the filter.
    if (previous) {
        for (const auto& l : listeners())
            l->OnDeviceLost(*previous);
        dispatch(EVT_DEVICE_LOST, previous->GetId());
    }
    Toolkit::MutexLocker state(m_stateLock);
    if (!m_selected)
        return;
    for (const auto& l : listeners())
        l->OnDeviceFound(*m_selected);
    dispatch(EVT_DEVICE_FOUND, m_selected->GetId());
    dispatch(EVT_DEVICE_INFO, m_selected->GetId());
}

void DCControler::OnDeviceFound(Devices::Device& device)
{
    Toolkit::MutexLocker selection(m_selectionLock);
    {
        Toolkit::MutexLocker state(m_stateLock);
        if (m_selected && m_selected->GetId() != device.GetId())
            m_history.push_back(m_selected->GetId());
    }
    SetSelectedDevice(device.GetId());
}

void DCControler::OnDeviceLost(Devices::Device& device)
{
    const auto id = device.GetId();
    const bool leave = forgetDevice(id);
    {
        Toolkit::MutexLocker selection(m_selectionLock);
        bool reselect = true;
        unsigned long long next = 0;
        {
            Toolkit::MutexLocker state(m_stateLock);
            if (m_selected && m_selected->GetId() != id) {
                const auto it = std::find(m_history.begin(), m_history.end(), id);
                if (it != m_history.end())
                    m_history.erase(it);
                reselect = false;
            } else if (m_selected && !m_history.empty()) {
                next = m_history.back();
                m_history.pop_back();
            }
        }
        if (reselect)
            SetSelectedDevice(next);
    }
    if (leave)
        leaveRequestScreen();
}

// A device that goes takes its answers and marks with it; true when a
// request screen was up for it, which is then left as if cancelled.
bool DCControler::forgetDevice(unsigned long long id)
{
    {
        Toolkit::MutexLocker state(m_stateLock);
        m_codes.erase(id);
    }
    m_marks.Forget(id);
    return endRequest(id);
}

void DCControler::DropDevice(unsigned long long id)
{
    Devices::DeviceManager::DropDevice(id);
    Detection::DiscoveryControl::Refresh();
}

// ---- dispatching ----

void DCControler::dispatch(wxEventType type, unsigned long long id)
{
    UIKit::DeviceEvent event(type, id);
    DispatchEvent(event);
}

void DCControler::DispatchDeviceEvent(wxEventType type, unsigned long long id)
{
    if (CanDispatchDeviceEvent(id))
        dispatch(type, id);
}

void DCControler::OnDeviceUpdated(Devices::Device& device)
{
    for (const auto& l : listeners())
        l->OnDeviceUpdated(device);
    DispatchDeviceEvent(EVT_DEVICE_UPDATED, device.GetId());
}

void DCControler::OnDeviceInformationUpdated(Devices::Device& device)
{
    for (const auto& l : listeners())
        l->OnDeviceInformationUpdated(device);
    DispatchDeviceEvent(EVT_DEVICE_INFO, device.GetId());
}

void DCControler::OnGhostDeviceFound(Devices::GhostDevice& ghost)
{
    dispatch(EVT_DEVICE_GHOST_FOUND, ghost.GetId());
}

void DCControler::OnGhostDeviceLost(Devices::GhostDevice& ghost)
{
    dispatch(EVT_DEVICE_GHOST_LOST, ghost.GetId());
    m_marks.Forget(ghost.GetId());
}

void DCControler::OnDeviceUsedFeaturesChanged(Devices::Device& device, unsigned int /*features*/)
{
    dispatch(EVT_DEVICE_USED_FEATURES_CHANGED, device.GetId());
}

// ---- requests ----

void DCControler::OnPinCodeRequested(Devices::Device& device, Devices::SecurityCode code, unsigned int attempts,
                                     TString<char>& pin, bool retry, bool& stop)
{
    TK_LOG(Toolkit::LogInfo) << "OnPinCodeRequested " << device.GetName() << " : pin " << unsigned(code);
    dispatch(EVT_DEVICE_PIN_REQUESTED, device.GetId());
    if (code & Devices::SecurityCodePinBit)
        codeRequest(device, code, attempts, retry, [&](unsigned long long id) { handOver(pin, GetPINCode(id)); }, stop);
    else
        stop = m_stopping.Wait(0);
}

void DCControler::OnPukCodeRequested(Devices::Device& device, Devices::SecurityCode code, unsigned int attempts,
                                     TString<char>& puk, TString<char>& newPin, bool retry, bool& stop)
{
    TK_LOG(Toolkit::LogInfo) << "OnPukCodeRequested " << device.GetName() << " : puk " << unsigned(code);
    dispatch(EVT_DEVICE_PUK_REQUESTED, device.GetId());
    if (code & Devices::SecurityCodePukBit)
        codeRequest(device, code, attempts, retry,
                    [&](unsigned long long id) { handOver(puk, GetPUKCode(id, newPin)); }, stop);
    else
        stop = m_stopping.Wait(0);
}

// Returns at once: the answer if the user gave one for this device, else
// the screen that asks (unless one is up already).
void DCControler::codeRequest(Devices::Device& device, Devices::SecurityCode code, unsigned int attempts, bool retry,
                              const std::function<void(unsigned long long)>& collect, bool& stop)
{
    const auto id = device.GetId();
    m_marks.ClearInitError(id);
    if (!collectAnswer(id, [&] { collect(id); })) {
        const int state = code & Devices::SecurityCodePukBit ? ID_PUKCODE_STATE : ID_PINCODE_STATE;
        requestScreen(id, state,
                      Toolkit::make_smart<SecurityCodeRequiredParameter>(id, device.GetName(), code, attempts, retry));
    }
    stop = m_stopping.Wait(0);
}

// The answer is this device's only: another device asking meanwhile
// neither takes it nor consumes the signal.
bool DCControler::collectAnswer(unsigned long long id, const std::function<void()>& collect)
{
    Toolkit::MutexLocker lock(m_stateLock);
    if (!m_codes.count(id) || !m_answerReady.Wait(0))
        return false;
    collect();
    endRequest(id);
    return true;
}

// Tested and set under the state lock: two devices asking at once bring up
// one screen.
void DCControler::requestScreen(unsigned long long id, int stateId, Toolkit::smart_ptr<IStateParameter> parameter)
{
    {
        Toolkit::MutexLocker lock(m_stateLock);
        if (m_requestShown.Wait(0))
            return;
        m_requestShown.Set();
        m_requestDevice = id;
    }
    navigate(stateId, std::move(parameter));
}

bool DCControler::endRequest(unsigned long long id)
{
    Toolkit::MutexLocker lock(m_stateLock);
    if (m_requestDevice != id || !m_requestShown.Wait(0))
        return false;
    m_requestShown.Reset();
    m_requestDevice = 0;
    return true;
}

void DCControler::navigate(int stateId, Toolkit::smart_ptr<IStateParameter> parameter)
{
    SequenceDoEventEvent event(SequenceManager::c_strAny, SequenceManager::c_strAny, stateId, std::move(parameter));
    DispatchEvent(event);
}

void DCControler::leaveRequestScreen()
{
    const auto sequences = SequenceManager::Instance();
    const auto current = sequences ? sequences->GetCurrentSequence() : Toolkit::smart_ptr<Sequence>();
    if (current && current->GetName() == c_strBrowserSequence)
        return;
    wxCommandEvent back(EVT_SEQUENCE_PREVIOUS_SEQUENCE, 0);
    DispatchEvent(back);
}

void DCControler::OnPinPukCodeRequestCancelled(Devices::Device& device)
{
    TK_LOG(Toolkit::LogInfo) << "OnPinPukCodeRequestCancelled " << device.GetName() << " : pin cancelled";
    const bool shown = endRequest(device.GetId());
    dispatch(EVT_DEVICE_PIN_PUK_CANCELLED, device.GetId());
    if (shown)
        leaveRequestScreen();
}

void DCControler::OnDeviceInFlightMode(Devices::Device& device, Devices::FlightMode& mode)
{
    const auto id = device.GetId();
    dispatch(EVT_DEVICE_IN_FLIGHT_MODE, id);
    // A radio held off by its switch cannot be switched on: no question.
    if (m_marks.HasFlightMode(id)) {
        mode = Devices::FlightModeStay;
        return;
    }
    if (collectAnswer(id, [&] { mode = GetFlightMode(id); })) {
        TK_LOG(Toolkit::LogInfo) << "OnDeviceInFlightMode " << device.GetName() << " : in flight mode : "
                                 << int(mode);
        return;
    }
    requestScreen(id, ID_FLIGHTMODE_STATE, Toolkit::make_smart<DeviceNameParameter>(id, device.GetName()));
}

void DCControler::OnDeviceInFlightModeCancelled(Devices::Device& device)
{
    TK_LOG(Toolkit::LogInfo) << "OnDeviceInFlightModeCancelled " << device.GetName() << " : flight mode cancelled";
    endRequest(device.GetId());
    dispatch(EVT_DEVICE_IN_FLIGHT_MODE_CANCELLED, device.GetId());
}

void DCControler::OnPortInitProgress(Devices::Device& device, const TString<char>& /*port*/,
                                     Devices::InitializationStep step)
{
    const auto id = device.GetId();
    DeviceInitEvent progress(EVT_DEVICE_INIT_PROGRESS, id, step);
    DispatchEvent(progress);
    if (step == Devices::InitStepRadioHardwareOff)
        m_marks.MarkFlightMode(id);
    // The error screen comes once per device, until its next code request.
    if ((step == Devices::InitStepSimMissing || step == Devices::InitStepSimFailure) && m_marks.MarkInitError(id))
        navigate(ID_SIMINITERROR_STATE,
                 Toolkit::make_smart<DeviceInitializationErrorParameter>(id, device.GetName(), step));
}

// ---- navigation, on the GUI thread ----

void DCControler::OnSequenceDoEvent(wxCommandEvent& event)
{
    const auto* request = dynamic_cast<SequenceDoEventEvent*>(&event);
    const auto sequences = SequenceManager::Instance();
    if (request && sequences)
        sequences->DoEvent(request->GetSequence(), request->GetState(), request->GetEventId(),
                           request->GetParameter());
}

void DCControler::OnSequencePrevious(wxCommandEvent& /*event*/)
{
    if (const auto sequences = SequenceManager::Instance())
        sequences->PreviousSequence(AnimationSlideRight);
}

} // namespace UIKit

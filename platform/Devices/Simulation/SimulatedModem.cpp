#include "Devices/Simulation/SimulatedModem.h"

#include "Devices/DeviceManager.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/TickCount.h"

#include <algorithm>
#include <thread>

namespace Devices::Simulation {

SimulatedModem::SimulatedModem(const ModemScript& script, unsigned int features,
                               Toolkit::smart_ptr<Detection::DiscoveryEvent> sink)
    : m_script(script), m_sink(std::move(sink)), m_info(script.info), m_sim(script)
{
    m_info.features &= features;
}

SimulatedModem::~SimulatedModem()
{
    Halt();
    Join();
}

void SimulatedModem::Halt()
{
    m_halt.Set();
    m_wake.Set();
}

void SimulatedModem::Run()
{
    for (const auto& step : m_script.steps) {
        if (halted())
            break;
        play(step);
    }
    // The script is over: the device stays until the end of the scenario.
    while (!halted()) {
        service();
        traffic();
        bool busy;
        {
            Toolkit::MutexLocker lock(m_lock);
            busy = (m_info.IsConnected() || settling()) && m_plugged;
        }
        // A connection waits for the clock without moving it, so that under
        // a test's fake clock the test decides when it opens and how long
        // it lasts once the script is over.
        m_wake.Wait(busy ? c_pollMs : c_updateMs);
    }
    pull();
}

void SimulatedModem::play(const ScenarioStep& step)
{
    switch (step.kind) {
    case StepKind::Plug: plug(); break;
    case StepKind::Pull: pull(); break;
    case StepKind::Wait: pause(step.duration); break;
    case StepKind::Init: init(step.initSteps); break;
    case StepKind::SimError:
        init(step.initSteps);
        publish([](DeviceInfo& i) {
            i.state = DeviceStateFailed;
            i.lock = LockUnknown;
        });
        notify([](DeviceEvent& l, Device& d) { l.OnDeviceUpdated(d); });
        break;
    case StepKind::Unlock: unlock(step.duration); break;
    case StepKind::FlightMode: flightMode(step.duration); break;
    case StepKind::Register: registerOn(step); break;
    case StepKind::Signal:
        publish([&](DeviceInfo& i) { i.signalQuality = step.number; });
        notify([](DeviceEvent& l, Device& d) { l.OnDeviceUpdated(d); });
        break;
    case StepKind::Operator:
        publish([&](DeviceInfo& i) { i.operatorName = step.text; });
        notify([](DeviceEvent& l, Device& d) { l.OnDeviceInformationUpdated(d); });
        break;
    case StepKind::Roaming:
        publish([&](DeviceInfo& i) { i.registration = step.flag ? RegistrationRoaming : RegistrationHome; });
        notify([](DeviceEvent& l, Device& d) { l.OnDeviceInformationUpdated(d); });
        break;
    case StepKind::Tech:
        publish([&](DeviceInfo& i) { i.accessTechnology = step.number; });
        notify([](DeviceEvent& l, Device& d) { l.OnDeviceInformationUpdated(d); });
        break;
    case StepKind::Connect: connect(); break;
    case StepKind::Traffic: {
        Toolkit::MutexLocker lock(m_lock);
        m_upRate = step.number;
        m_downRate = step.number2;
        break;
    }
    case StepKind::Disconnect: disconnect(); break;
    case StepKind::Features:
        publish([&](DeviceInfo& i) { i.features = step.number; });
        notify([&](DeviceEvent& l, Device& d) { l.OnDeviceUsedFeaturesChanged(d, step.number); });
        break;
    case StepKind::Error:
        notify([&](DeviceEvent& l, Device& d) { l.OnError(d, step.text); });
        break;
    case StepKind::Refuse: {
        Toolkit::MutexLocker lock(m_lock);
        m_refusal = ConnectionError(step.number);
        break;
    }
    }
}

bool SimulatedModem::attached() const
{
    Toolkit::MutexLocker lock(m_lock);
    return m_plugged && !m_released && m_device;
}

bool SimulatedModem::notify(const std::function<void(DeviceEvent&, Device&)>& call)
{
    return attached() && DeviceManager::Notify(m_script.id, call);
}

void SimulatedModem::publish(const std::function<void(DeviceInfo&)>& change)
{
    Toolkit::smart_ptr<Device> device;
    DeviceInfo info;
    {
        Toolkit::MutexLocker lock(m_lock);
        change(m_info);
        info = m_info;
        device = m_device;
    }
    if (device)
        device->SetInfo(info);
}

bool SimulatedModem::pause(uint64_t ms)
{
    const uint64_t due = Toolkit::GetTickCount() + ms;
    for (;;) {
        if (halted())
            return false;
        service();
        traffic();
        const uint64_t now = Toolkit::GetTickCount();
        if (now >= due)
            return true;
        Toolkit::Thread::Sleep(unsigned(std::min<uint64_t>(due - now, c_tickMs)));
        // Under a test's clock the sleep returns at once; let others run.
        std::this_thread::yield();
    }
}

// Carries out what the application asked for since the last look.
void SimulatedModem::service()
{
    Request request;
    bool refresh;
    {
        Toolkit::MutexLocker lock(m_lock);
        request = m_request;
        m_request = Request::None;
        refresh = m_refresh && m_plugged && m_released;
        m_refresh = false;
        if (refresh)
            m_released = false;
    }
    if (refresh && !m_script.ghost)
        m_sink->OnDeviceArrived(m_script.id);
    settle();
    switch (request) {
    case Request::None: break;
    case Request::Connect: connect(); break;
    case Request::Disconnect: disconnect(); break;
    case Request::PowerOn: power(PowerOn); break;
    case Request::PowerLow: power(PowerLow); break;
    }
}

void SimulatedModem::traffic()
{
    const uint64_t now = Toolkit::GetTickCount();
    bool update = false;
    publish([&](DeviceInfo& i) {
        if (!i.IsConnected()) {
            m_lastTraffic = m_lastUpdate = now;
            return;
        }
        const uint64_t elapsed = now - std::min(now, m_lastTraffic);
        i.bytesSent += m_upRate * elapsed / 1000;
        i.bytesReceived += m_downRate * elapsed / 1000;
        m_lastTraffic = now;
        update = now - std::min(now, m_lastUpdate) >= c_updateMs;
        if (update)
            m_lastUpdate = now;
    });
    if (update)
        notify([](DeviceEvent& l, Device& d) { l.OnDeviceUpdated(d); });
}

void SimulatedModem::plug()
{
    if (m_script.ghost) {
        m_sink->OnGhostArrived(m_script.id, m_script.info.name);
        Toolkit::MutexLocker lock(m_lock);
        m_plugged = true;
        return;
    }
    {
        Toolkit::MutexLocker lock(m_lock);
        if (m_plugged)
            return;
        m_plugged = true;
        m_released = false;
        m_info.state = DeviceStateInitializing;
        m_info.lock = m_sim.HasPin() ? LockUnknown : LockNone;
    }
    TK_LOG(Toolkit::LogInfo) << "simulated modem " << m_script.label << " plugged in";
    // The manager opens the device (Open below) before this returns.
    m_sink->OnDeviceArrived(m_script.id);
    notify([&](DeviceEvent& l, Device& d) { l.OnPortAdded(d, m_script.info.port); });
}

void SimulatedModem::pull()
{
    {
        Toolkit::MutexLocker lock(m_lock);
        if (!m_plugged)
            return;
    }
    TK_LOG(Toolkit::LogInfo) << "simulated modem " << m_script.label << " pulled out";
    if (m_script.ghost) {
        m_sink->OnGhostRemoved(m_script.id);
    } else {
        notify([&](DeviceEvent& l, Device& d) { l.OnPortLost(d, m_script.info.port); });
        m_sink->OnDeviceRemoved(m_script.id);
    }
    Toolkit::MutexLocker lock(m_lock);
    m_plugged = false;
    m_device.reset();
    m_info.state = DeviceStateUnknown;
    m_info.connectedSince = 0;
    m_request = Request::None;
}

Toolkit::smart_ptr<Device> SimulatedModem::Open(Toolkit::smart_ptr<DeviceDriver> self)
{
    Toolkit::MutexLocker lock(m_lock);
    if (!m_plugged || m_released)
        return {};
    m_device = Toolkit::make_smart<Device>(m_script.id, m_info, std::move(self));
    return m_device;
}

void SimulatedModem::Refresh()
{
    Toolkit::MutexLocker lock(m_lock);
    m_refresh = true;
    m_wake.Set();
}

void SimulatedModem::init(const std::vector<InitializationStep>& steps)
{
    for (const auto step : steps) {
        publish([&](DeviceInfo& i) {
            if (step == InitStepRadioHardwareOff)
                i.power = PowerLow;
            else if (step == InitStepCompleted)
                i.state = i.lock == LockNone || i.lock == LockUnknown
                              ? (i.power == PowerLow ? DeviceStateDisabled : DeviceStateEnabled)
                              : DeviceStateLocked;
        });
        notify([&](DeviceEvent& l, Device& d) { l.OnPortInitProgress(d, m_script.info.port, step); });
        if (step == InitStepCompleted)
            notify([](DeviceEvent& l, Device& d) { l.OnDeviceInitCompleted(d); });
    }
}

void SimulatedModem::unlock(uint64_t giveUpMs)
{
    const uint64_t deadline = giveUpMs ? Toolkit::GetTickCount() + giveUpMs : 0;
    bool locked = false;
    publish([&](DeviceInfo& i) {
        locked = m_sim.HasPin() && !m_sim.IsBlocked();
        if (!locked)
            return;
        i.lock = m_sim.Waits();
        i.state = DeviceStateLocked;
        i.pinAttempts = m_sim.PinAttempts();
        i.pukAttempts = m_sim.PukAttempts();
    });
    if (!locked)
        return;
    const auto cancel = [this] { notify([](DeviceEvent& l, Device& d) { l.OnPinPukCodeRequestCancelled(d); }); };
    bool retry = false;
    for (;;) {
        bool puk;
        {
            Toolkit::MutexLocker lock(m_lock);
            puk = m_info.lock == LockSimPuk;
            if (m_info.lock == LockNone || m_info.state == DeviceStateFailed)
                return;
        }
        bool answered = false, stop = false;
        if (halted() || !askCode(puk, retry, answered, stop))
            return cancel();
        if (stop) {
            TK_LOG(Toolkit::LogInfo) << "simulated modem " << m_script.label << ": code request stopped";
            return;
        }
        if (answered) {
            retry = true; // until the next code, the last one stands refused
            continue;
        }
        if (deadline && Toolkit::GetTickCount() >= deadline) {
            TK_LOG(Toolkit::LogInfo) << "simulated modem " << m_script.label << ": code request given up";
            return cancel();
        }
        if (!pause(c_repeatMs))
            return cancel();
    }
}

// Asks once for the PIN (or the PUK and a new PIN) and checks the answer.
// False when the device is gone; answered when a code came, right or not.
bool SimulatedModem::askCode(bool puk, bool retry, bool& answered, bool& stop)
{
    unsigned int pinAttempts, pukAttempts;
    {
        Toolkit::MutexLocker lock(m_lock);
        pinAttempts = m_sim.PinAttempts();
        pukAttempts = m_sim.PukAttempts();
    }
    TString<char> code, newPin;
    const bool present = notify([&](DeviceEvent& l, Device& d) {
        if (!code.empty() || stop)
            return; // an earlier listener answered
        if (puk)
            l.OnPukCodeRequested(d, SecurityCodeSimPuk, pukAttempts, code, newPin, retry, stop);
        else
            l.OnPinCodeRequested(d, SecurityCodeSimPin, pinAttempts, code, retry, stop);
    });
    answered = present && !code.empty() && !stop;
    bool right = false;
    if (answered) {
        Toolkit::MutexLocker lock(m_lock);
        right = m_sim.Try(puk, code, newPin);
    }
    SimCard::Wipe(code);
    SimCard::Wipe(newPin);
    if (!answered)
        return present;
    TK_LOG(Toolkit::LogInfo) << "simulated modem " << m_script.label << ": " << (puk ? "PUK " : "PIN ")
                             << (right ? "accepted" : "refused");
    bool blocked = false;
    publish([&](DeviceInfo& i) {
        i.pinAttempts = m_sim.PinAttempts();
        i.pukAttempts = m_sim.PukAttempts();
        blocked = m_sim.IsBlocked();
        i.lock = right ? LockNone : m_sim.Waits();
        if (right)
            i.state = DeviceStateDisabled;
        else if (blocked)
            i.state = DeviceStateFailed;
    });
    if (blocked)
        init({InitStepSimFailure});
    notify([](DeviceEvent& l, Device& d) { l.OnDeviceInformationUpdated(d); });
    return true;
}

void SimulatedModem::flightMode(uint64_t giveUpMs)
{
    const uint64_t deadline = giveUpMs ? Toolkit::GetTickCount() + giveUpMs : 0;
    publish([](DeviceInfo& i) {
        i.power = PowerLow;
        i.state = DeviceStateDisabled;
    });
    notify([](DeviceEvent& l, Device& d) { l.OnDeviceUpdated(d); });
    for (;;) {
        FlightMode mode = FlightModeUnanswered;
        const bool present = !halted() && notify([&](DeviceEvent& l, Device& d) {
            if (mode == FlightModeUnanswered)
                l.OnDeviceInFlightMode(d, mode);
        });
        const bool givenUp = deadline && Toolkit::GetTickCount() >= deadline;
        if (!present || (mode == FlightModeUnanswered && (givenUp || !pause(c_repeatMs)))) {
            notify([](DeviceEvent& l, Device& d) { l.OnDeviceInFlightModeCancelled(d); });
            return;
        }
        if (mode == FlightModeLeave) {
            power(PowerOn);
            return;
        }
        if (mode == FlightModeStay)
            return;
    }
}

void SimulatedModem::power(PowerState power)
{
    publish([&](DeviceInfo& i) {
        if (i.state == DeviceStateFailed || i.state == DeviceStateLocked)
            return;
        i.power = power;
        if (power != PowerOn)
            i.state = DeviceStateDisabled;
        else
            i.state = i.operatorName.empty() ? DeviceStateEnabled : DeviceStateRegistered;
        if (power != PowerOn)
            i.connectedSince = 0;
    });
    notify([](DeviceEvent& l, Device& d) { l.OnDeviceUpdated(d); });
}

void SimulatedModem::registerOn(const ScenarioStep& step)
{
    bool ready;
    publish([&](DeviceInfo& i) {
        ready = i.state != DeviceStateFailed && i.lock == LockNone && i.power != PowerLow;
        if (!ready)
            return;
        i.power = PowerOn;
        i.operatorName = step.text;
        i.accessTechnology = step.number;
        i.signalQuality = step.number2;
        i.registration = step.flag ? RegistrationRoaming : RegistrationHome;
        i.state = DeviceStateRegistered;
    });
    if (!ready) {
        TK_LOG(Toolkit::LogInfo) << "simulated modem " << m_script.label << ": cannot register (locked, off or failed)";
        return;
    }
    notify([](DeviceEvent& l, Device& d) { l.OnDeviceInformationUpdated(d); });
    notify([](DeviceEvent& l, Device& d) { l.OnDeviceUpdated(d); });
}

void SimulatedModem::connect()
{
    bool ready;
    const uint64_t now = Toolkit::GetTickCount();
    publish([&](DeviceInfo& i) {
        ready = i.state == DeviceStateRegistered;
        if (!ready)
            return;
        i.state = DeviceStateConnecting;
        i.connectionError = ConnectionErrorNone;
        m_settleDue = now + c_connectMs;
    });
    if (ready)
        notify([](DeviceEvent& l, Device& d) { l.OnDeviceUpdated(d); });
}

void SimulatedModem::disconnect()
{
    bool connected;
    const uint64_t now = Toolkit::GetTickCount();
    publish([&](DeviceInfo& i) {
        connected = i.state == DeviceStateConnected || i.state == DeviceStateConnecting;
        if (!connected)
            return;
        i.state = DeviceStateDisconnecting;
        m_settleDue = now + c_disconnectMs;
    });
    if (connected)
        notify([](DeviceEvent& l, Device& d) { l.OnDeviceUpdated(d); });
}

bool SimulatedModem::settling() const
{
    return m_info.state == DeviceStateConnecting || m_info.state == DeviceStateDisconnecting;
}

void SimulatedModem::settle()
{
    const uint64_t now = Toolkit::GetTickCount();
    bool changed = false;
    publish([&](DeviceInfo& i) {
        if (!settling() || now < m_settleDue)
            return;
        changed = true;
        if (i.state == DeviceStateConnecting && m_refusal == ConnectionErrorNone) {
            i.state = DeviceStateConnected;
            i.connectedSince = now;
            i.bytesSent = i.bytesReceived = 0;
            m_lastTraffic = m_lastUpdate = now;
            return;
        }
        if (i.state == DeviceStateConnecting)
            i.connectionError = m_refusal;
        i.state = DeviceStateRegistered;
        i.connectedSince = 0;
    });
    if (changed)
        notify([](DeviceEvent& l, Device& d) { l.OnDeviceUpdated(d); });
}

// The last refusal is forgotten as soon as the request is taken, so that a
// reader never mistakes it for the answer to this one.
int SimulatedModem::Connect()
{
    {
        Toolkit::MutexLocker lock(m_lock);
        if (!m_plugged || m_released || m_info.state != DeviceStateRegistered)
            return -1;
        m_request = Request::Connect;
    }
    publish([](DeviceInfo& i) { i.connectionError = ConnectionErrorNone; });
    m_wake.Set();
    return 0;
}

int SimulatedModem::Disconnect(DisconnectReason)
{
    Toolkit::MutexLocker lock(m_lock);
    if (!m_plugged || m_released)
        return -1;
    m_request = Request::Disconnect;
    m_wake.Set();
    return 0;
}

bool SimulatedModem::SetPower(PowerState power)
{
    Toolkit::MutexLocker lock(m_lock);
    if (!m_plugged || m_released || (power != PowerOn && power != PowerLow))
        return false;
    m_request = power == PowerOn ? Request::PowerOn : Request::PowerLow;
    m_wake.Set();
    return true;
}

void SimulatedModem::Release()
{
    Toolkit::MutexLocker lock(m_lock);
    m_released = true;
    m_device.reset();
    m_request = Request::None;
}

} // namespace Devices::Simulation

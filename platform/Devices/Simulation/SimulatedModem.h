#pragma once
// One simulated modem: plays its script on its own thread, reports through
// discovery and the device manager like real hardware would, and serves
// the application's requests (connect, disconnect, power) as its driver.
//
// Requests that need the user are asked again every c_repeatMs until they
// are answered, given up (the script's giveup time: the request is then
// cancelled) or the device goes away. The driver side may be called from
// any thread; it only records the request, which the modem's thread
// carries out, so listeners always hear from the modem's thread.
#include "Detection/DiscoveryEvent.h"
#include "Devices/Device.h"
#include "Devices/DeviceDriver.h"
#include "Devices/Simulation/Scenario.h"
#include "Devices/Simulation/SimCard.h"
#include "Toolkit/EventObject.h"
#include "Toolkit/Mutex.h"
#include "Toolkit/Thread.h"
#include "Toolkit/smart_ptr.h"

#include <functional>

namespace Devices::Simulation {

class SimulatedModem : public Toolkit::Thread, public DeviceDriver {
public:
    static constexpr unsigned int c_repeatMs = 500;
    static constexpr unsigned int c_tickMs = 250;
    static constexpr unsigned int c_updateMs = 1000;
    // Opening and closing a data connection take this long, during which
    // the device reports connecting or disconnecting.
    static constexpr unsigned int c_connectMs = 1500;
    static constexpr unsigned int c_disconnectMs = 1000;
    // How often a modem with a connection open or opening looks at the clock.
    static constexpr unsigned int c_pollMs = 50;

    SimulatedModem(const ModemScript& script, unsigned int features, Toolkit::smart_ptr<Detection::DiscoveryEvent> sink);
    ~SimulatedModem() override;

    unsigned long long GetId() const { return m_script.id; }
    // Ends the script (a pending request is cancelled, the device pulled);
    // Join() then waits for the thread.
    void Halt();
    // A device for the manager, attached to this modem; null while it is
    // not plugged in or is being let go.
    Toolkit::smart_ptr<Device> Open(Toolkit::smart_ptr<DeviceDriver> self);
    // Reports the modem again if the application let go of it.
    void Refresh();

    int Connect() override;
    int Disconnect(DisconnectReason reason) override;
    bool SetPower(PowerState power) override;
    void Release() override;

protected:
    void Run() override;

private:
    enum class Request { None, Connect, Disconnect, PowerOn, PowerLow };

    void play(const ScenarioStep& step);
    bool notify(const std::function<void(DeviceEvent&, Device&)>& call);
    void publish(const std::function<void(DeviceInfo&)>& change);
    bool attached() const;
    bool halted() { return m_halt.Wait(0); }
    // Waits on the injectable clock, serving requests and traffic; false
    // when halted.
    bool pause(uint64_t ms);
    void service();

    void plug();
    void pull();
    void init(const std::vector<InitializationStep>& steps);
    void unlock(uint64_t giveUpMs);
    bool askCode(bool puk, bool retry, bool& answered, bool& stop);
    void flightMode(uint64_t giveUpMs);
    void registerOn(const ScenarioStep& step);
    void connect();
    void disconnect();
    // Ends an opening or closing connection once its time has come.
    void settle();
    bool settling() const;
    void power(PowerState power);
    void traffic();

    const ModemScript m_script;
    const Toolkit::smart_ptr<Detection::DiscoveryEvent> m_sink;
    Toolkit::EventObject m_halt{true, false};
    Toolkit::EventObject m_wake{false, false};

    mutable Toolkit::Mutex m_lock; // guards everything below
    DeviceInfo m_info;
    Toolkit::smart_ptr<Device> m_device;
    bool m_plugged = false;
    bool m_released = false;
    bool m_refresh = false;
    Request m_request = Request::None;
    SimCard m_sim;
    unsigned int m_upRate = 0;     // bytes per second while connected
    unsigned int m_downRate = 0;
    uint64_t m_lastTraffic = 0;
    uint64_t m_lastUpdate = 0;
    ConnectionError m_refusal = ConnectionErrorNone; // what the network answers the next connections
    uint64_t m_settleDue = 0;      // when connecting or disconnecting ends
};

} // namespace Devices::Simulation

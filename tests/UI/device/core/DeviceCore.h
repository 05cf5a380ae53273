#pragma once
// Shared by the controller's tests: the module's controller made for one
// test, devices made in the test and plugged on its thread, and what the
// controller posts, written down as words ("found 1", "screen 8010 1").
#include "Devices/DeviceManager.h"
#include "device/DCControler.h"
#include "device/DeviceEvent.h"
#include "navigation/DeviceNameParameter.h"
#include "navigation/SequenceDoEventEvent.h"

#include <wx/app.h>

#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace devicetest {

using UIKit::DCControler;

struct Driver : Devices::DeviceDriver {
    int Connect() override { return 0; }
    int Disconnect(Devices::DisconnectReason) override { return 0; }
    bool SetPower(Devices::PowerState) override { return true; }
    void Release() override {}
};

// Opens "Modem N" for id N, with the features the test gives it.
struct Backend : Devices::DeviceBackend {
    Toolkit::smart_ptr<Devices::Device> Open(unsigned long long id) override
    {
        Devices::DeviceInfo info;
        info.name = L"Modem " + std::to_wstring(id);
        info.features = features[id];
        return Toolkit::make_smart<Devices::Device>(id, info, Toolkit::make_smart<Driver>());
    }
    std::map<unsigned long long, unsigned int> features;
};

class PostedEvents : public wxEvtHandler {
public:
    PostedEvents()
    {
        const std::map<wxEventType, std::string> words = {
            {DCControler::EVT_DEVICE_FOUND, "found"},     {DCControler::EVT_DEVICE_LOST, "lost"},
            {DCControler::EVT_DEVICE_UPDATED, "updated"}, {DCControler::EVT_DEVICE_INFO, "info"},
            {DCControler::EVT_DEVICE_GHOST_FOUND, "ghost"}};
        for (const auto& [type, word] : words)
            Bind(wxEventTypeTag<wxCommandEvent>(type), [this, word](wxCommandEvent& e) {
                add(word + " " + std::to_string(static_cast<UIKit::DeviceEvent&>(e).GetDeviceId()));
            });
        Bind(wxEventTypeTag<wxCommandEvent>(DCControler::EVT_SEQUENCE_PREVIOUS_SEQUENCE),
             [this](wxCommandEvent&) { add("back"); });
        Bind(wxEventTypeTag<UIKit::SequenceDoEventEvent>(DCControler::EVT_SEQUENCE_DO_EVENT),
             [this](UIKit::SequenceDoEventEvent& e) {
                 const auto device = e.GetParameter().DynamicCast<UIKit::DeviceNameParameter>();
                 add("screen " + std::to_string(e.GetEventId()) + " " + std::to_string(device->GetDeviceId()));
             });
    }
    // Every event posted so far (to anyone) is handled first.
    std::vector<std::string> Take()
    {
        wxTheApp->ProcessPendingEvents();
        std::lock_guard lock(m_lock);
        return std::exchange(m_words, {});
    }

private:
    void add(const std::string& word)
    {
        std::lock_guard lock(m_lock);
        m_words.push_back(word);
    }
    std::mutex m_lock;
    std::vector<std::string> m_words;
};

// The module's controller for one test, listening to the device manager
// unless the test starts it itself.
struct TestController {
    explicit TestController(bool listen = true)
    {
        DCControler::CreateInstance();
        controller = DCControler::Instance();
        controller->AddListener(&posted);
        Devices::DeviceManager::SetBackend(backend);
        if (listen)
            Devices::DeviceManager::AddListener(controller);
    }
    ~TestController()
    {
        Devices::DeviceManager::DeviceMap devices;
        Devices::DeviceManager::GetDevicesMap(devices);
        for (const auto& [id, device] : devices)
            Pull(id);
        Devices::DeviceManager::RemoveListener(controller);
        Devices::DeviceManager::SetBackend({});
        posted.Take();
        controller->RemoveListener(&posted);
        controller.reset();
        DCControler::ReleaseInstance();
    }
    void Plug(unsigned long long id) { Devices::DeviceManager::Instance()->OnDeviceArrived(id); }
    void Pull(unsigned long long id) { Devices::DeviceManager::Instance()->OnDeviceRemoved(id); }

    Toolkit::smart_ptr<Backend> backend = Toolkit::make_smart<Backend>();
    PostedEvents posted;
    Toolkit::smart_ptr<DCControler> controller;
};

} // namespace devicetest

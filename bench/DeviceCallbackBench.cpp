// How long a device callback keeps the device's thread while the GUI thread
// is busy painting. A device thread calls the controller back (updates and
// information changes of one modem) every 50 us or so; meanwhile the GUI
// thread repaints a window full of shapes and text, and handles the events
// the controller posted to it between two paints. Each callback is timed on
// the device thread; the median and the 99th percentile of a run of
// callbacks are reported as counters (microseconds). Target: p99 < 50 us.
#include "Devices/Device.h"
#include "Devices/DeviceDriver.h"
#include "device/DCControler.h"

#include <benchmark/benchmark.h>

#include <wx/app.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/frame.h>
#include <wx/panel.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace {

using UIKit::DCControler;

constexpr std::chrono::microseconds c_gap{50};

struct IdleDriver : Devices::DeviceDriver {
    int Connect() override { return 0; }
    int Disconnect(Devices::DisconnectReason) override { return 0; }
    bool SetPower(Devices::PowerState) override { return true; }
    void Release() override {}
};

// A window standing for a busy dashboard: each frame is drawn off screen,
// as buffered painting does, then shown. It is the controller's listener,
// as screens are, and counts the device events that reach it.
class BusyPanel : public wxPanel {
public:
    explicit BusyPanel(wxWindow* parent)
        : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxSize(800, 600)), m_buffer(800, 600)
    {
        for (auto type : {DCControler::EVT_DEVICE_UPDATED, DCControler::EVT_DEVICE_INFO})
            Bind(wxEventTypeTag<wxCommandEvent>(type), [this](wxCommandEvent&) { ++received; });
    }
    long received = 0;

    void PaintFrame()
    {
        wxMemoryDC dc(m_buffer);
        dc.SetBackground(*wxBLACK_BRUSH);
        dc.Clear();
        for (int row = 0; row < 30; ++row)
            for (int col = 0; col < 20; ++col) {
                dc.SetBrush(wxBrush(wxColour(row * 8, col * 12, 120)));
                dc.DrawRoundedRectangle(col * 40, row * 20, 38, 18, 4);
                dc.DrawText("48%", col * 40 + 4, row * 20 + 2);
            }
        dc.SelectObject(wxNullBitmap);
        wxClientDC(this).DrawBitmap(m_buffer, 0, 0);
    }

private:
    wxBitmap m_buffer;
};

// Microseconds at the given fraction of the sorted samples.
double Percentile(std::vector<double>& samples, double fraction)
{
    const size_t at = std::min(samples.size() - 1, static_cast<size_t>(fraction * samples.size()));
    std::nth_element(samples.begin(), samples.begin() + at, samples.end());
    return samples[at];
}

void BM_DeviceCallbackWhilePainting(benchmark::State& state)
{
    const int callbacks = static_cast<int>(state.range(0));
    DCControler::CreateInstance();
    auto controller = DCControler::Instance();
    auto* frame = new wxFrame(nullptr, wxID_ANY, "bench", wxDefaultPosition, wxSize(820, 640));
    auto* panel = new BusyPanel(frame);
    frame->Show();
    controller->AddListener(panel);
    Devices::DeviceInfo info;
    info.name = L"Bench modem";
    Devices::Device device(1, info, Toolkit::make_smart<IdleDriver>());

    std::vector<double> all;
    long paints = 0;
    for (auto _ : state) {
        std::vector<double> micros(callbacks);
        std::atomic<bool> done{false};
        std::thread deviceThread([&] {
            for (int i = 0; i < callbacks; ++i) {
                const auto start = std::chrono::steady_clock::now();
                if (i % 2)
                    controller->OnDeviceUpdated(device);
                else
                    controller->OnDeviceInformationUpdated(device);
                micros[i] = std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start)
                                .count();
                // Modems call back now and then, not in a burst: spread the
                // callbacks over many paints.
                std::this_thread::sleep_for(c_gap);
            }
            done = true;
        });
        while (!done) {
            panel->PaintFrame();
            ++paints;
            wxTheApp->ProcessPendingEvents();
        }
        deviceThread.join();
        wxTheApp->ProcessPendingEvents();
        all.insert(all.end(), micros.begin(), micros.end());
    }
    state.counters["p50_us"] = Percentile(all, 0.50);
    state.counters["p99_us"] = Percentile(all, 0.99);
    state.counters["max_us"] = *std::max_element(all.begin(), all.end());
    state.counters["paints"] = static_cast<double>(paints);
    state.counters["delivered"] = static_cast<double>(panel->received);
    state.SetItemsProcessed(static_cast<int64_t>(all.size()));

    controller->RemoveListener(panel);
    frame->Destroy();
    wxTheApp->ProcessPendingEvents();
    controller.reset();
    DCControler::ReleaseInstance();
}

BENCHMARK(BM_DeviceCallbackWhilePainting)->Arg(10000)->Iterations(3)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

// Building a panel of 200 skinned buttons and labels from descriptors and
// painting it once, next to building 200 plain wxPanels of the same sizes
// in code; and the repaint after one button changes state, next to a full
// repaint of the panel. Uses the default appearance pack.
#include "ControlGrid.h"
#include "DefaultPack.h"
#include "appearance/Appearance.h"
#include "controls/ButtonCtrl.h"
#include "controls/PanelCtrl.h"
#include "controls/StandardControls.h"
#include "factory/CtrlFactory.h"
#include "xml/XMLLoader.h"

#include <benchmark/benchmark.h>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/panel.h>

#include <cstdlib>

using namespace UIKit;

namespace {

constexpr int kColumns = 10;
constexpr int kRows = 20; // 200 controls: every other one a button

wxRect cellOf(int i)
{
    return wxRect((i % kColumns) * 62, (i / kColumns) * 30, 60, 28);
}

std::string panelDescription()
{
    return bench::ControlGrid("PanelCtrl", "0,0,620,600", kColumns * kRows, cellOf, true);
}

// The library's managers and the default pack, for the benchmark's run.
class Library {
public:
    Library()
    {
        m_loader.SetResources(m_pack.Resources());
        const std::string xml = panelDescription();
        m_loader.LoadFromBytes(xml.data(), xml.size());
        m_descriptor = CtrlFactory::Instance()->CreateDescriptor(m_loader.GetRootNode());
    }
    bool Ok() const { return m_pack.Ok() && m_descriptor; }
    const Toolkit::smart_ptr<BaseCtrlDescriptor>& Descriptor() const { return m_descriptor; }

private:
    bench::DefaultPack m_pack;
    XMLLoader m_loader;
    Toolkit::smart_ptr<BaseCtrlDescriptor> m_descriptor;
};

void BM_Build200SkinnedControlsAndPaint(benchmark::State& state)
{
    Library library;
    if (!library.Ok()) {
        state.SkipWithError("the default pack did not load");
        return;
    }
    for (auto _ : state) {
        auto* frame = new wxFrame(nullptr, wxID_ANY, "bench", wxPoint(0, 0), wxSize(640, 640));
        Control* panel = CtrlFactory::Instance()->CreateControl(library.Descriptor(), frame, -1);
        frame->Show();
        panel->Update();
        state.PauseTiming();
        frame->Destroy();
        wxTheApp->ProcessIdle();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Build200SkinnedControlsAndPaint)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void BM_Build200PlainPanelsAndPaint(benchmark::State& state)
{
    for (auto _ : state) {
        auto* frame = new wxFrame(nullptr, wxID_ANY, "bench", wxPoint(0, 0), wxSize(640, 640));
        auto* panel = new wxPanel(frame, wxID_ANY, wxPoint(0, 0), wxSize(620, 600));
        for (int i = 0; i < kColumns * kRows; ++i) {
            const wxRect r = cellOf(i);
            new wxPanel(panel, wxID_ANY, r.GetPosition(), r.GetSize());
        }
        frame->Show();
        panel->Update();
        state.PauseTiming();
        frame->Destroy();
        wxTheApp->ProcessIdle();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Build200PlainPanelsAndPaint)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// Repainting after one button changes state (arg 0), against repainting
// the whole panel (arg 1).
void BM_RepaintAfterOneButtonChanges(benchmark::State& state)
{
    Library library;
    if (!library.Ok()) {
        state.SkipWithError("the default pack did not load");
        return;
    }
    auto* frame = new wxFrame(nullptr, wxID_ANY, "bench", wxPoint(0, 0), wxSize(640, 640));
    Control* panel = CtrlFactory::Instance()->CreateControl(library.Descriptor(), frame, -1);
    frame->Show();
    panel->Update();
    auto* button = dynamic_cast<ButtonCtrl*>(panel->FindWindow("c0"));
    bool selected = false;
    for (auto _ : state) {
        if (state.range(0) == 0) {
            selected = !selected;
            button->Select(selected);
            button->Update();
        } else {
            panel->Refresh(true);
            panel->Update();
        }
    }
    frame->Destroy();
    wxTheApp->ProcessIdle();
}
BENCHMARK(BM_RepaintAfterOneButtonChanges)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

} // namespace

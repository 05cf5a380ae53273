// An event that switches to a screen of 50 skinned controls: the first time
// (the screen is built from its template inside the placeholder) and once
// built (hidden, then shown again), next to building the same 50 controls
// directly in code from the same descriptions. Each measurement ends with
// the screen painted. Uses the default appearance pack.
#include "ControlGrid.h"
#include "DefaultPack.h"
#include "appearance/Appearance.h"
#include "controls/ButtonCtrl.h"
#include "controls/PanelCtrl.h"
#include "controls/StandardControls.h"
#include "controls/StaticTextCtrl.h"
#include "descriptors/ScreenDescriptor.h"
#include "factory/ControlIds.h"
#include "factory/CtrlFactory.h"
#include "factory/CtrlGenerator.h"
#include "navigation/EventManager.h"
#include "navigation/ScreenCtrl.h"
#include "navigation/ScreenManager.h"
#include "navigation/ScreenTransition.h"
#include "navigation/SequenceManager.h"
#include "navigation/TransitionManager.h"
#include "xml/XMLLoader.h"

#include "../tests/UI/frames/TestDashboard.h"

#include <benchmark/benchmark.h>

#include <wx/app.h>

#include <cstdlib>
#include <string>

using namespace UIKit;

namespace {

constexpr int kControls = 50; // five columns of ten rows, every other one a button

wxRect cellOf(int i)
{
    return wxRect(10 + (i % 5) * 72, 10 + (i / 5) * 40, 68, 34);
}

std::string screenDescription(const std::string& className)
{
    return bench::ControlGrid(className, "0,0,380,414", kControls, cellOf, false);
}

const char* const c_events = R"(<Events sequence="*">
  <Event state="*" id="ID_HOME" sequence="Home" transition="THome"/>
  <Event state="*" id="ID_MAP" sequence="Bench" transition="TBench"/>
</Events>)";

struct PlainScreen {
    ScreenCtrl* operator()(wxWindow* parent, int id, const BaseCtrlDescriptor& descriptor) const
    {
        return new ScreenCtrl(parent, id, descriptor.GetBounds(), false);
    }
};

// The dashboard's part of a switch, as the host does it: the named screen
// (built on first use) replaces the one shown, and is painted at once.
class BenchDashboard : public frametest::TestDashboard {
public:
    BenchDashboard()
    {
        SetClientSize(380, 540);
        m_pControlPlaceholder = new PanelCtrl(this, ID_CTRLPLACEHOLDER, wxRect(0, 118, 380, 414));
    }
    bool ShowScreen(const TString<wchar_t>& name, Animation, int, int) override
    {
        ScreenCtrl* next = Singleton<ScreenManager>::Instance()->Get(name);
        if (!next)
            return false;
        if (m_pCurrentRunningScreen && m_pCurrentRunningScreen != next)
            m_pCurrentRunningScreen->Show(false);
        m_pCurrentRunningScreen = next;
        next->Show(true);
        next->Update();
        return true;
    }
};

// The managers a switch goes through, the default pack, the two event rows
// and a dashboard on screen that shows a small home screen.
class Navigation {
public:
    Navigation()
    {
        Singleton<EventManager>::CreateInstance();
        Singleton<TransitionManager>::CreateInstance();
        Singleton<SequenceManager>::CreateInstance();
        Singleton<ScreenManager>::CreateInstance();
        m_ok = m_pack.Ok();
        m_loader.SetResources(m_pack.Resources());
        m_loader.LoadFromBytes(c_events, std::char_traits<char>::length(c_events));
        Singleton<EventManager>::Instance()->Load(m_loader.GetRootNode());
        AddScreen("HomeBench", L"THome", L"Home");
        m_dashboard = new BenchDashboard();
        IDashboard::s_pCurrent = m_dashboard;
        m_dashboard->Show();
        m_ok = m_ok && Switch(ID_HOME, "HomeBench");
    }
    ~Navigation()
    {
        Singleton<SequenceManager>::Instance()->OnApplicationExit();
        IDashboard::s_pCurrent = nullptr;
        m_dashboard->Destroy();
        wxTheApp->ProcessIdle();
        Singleton<ScreenManager>::ReleaseInstance();
        Singleton<SequenceManager>::ReleaseInstance();
        Singleton<TransitionManager>::ReleaseInstance();
        Singleton<EventManager>::ReleaseInstance();
    }
    bool Ok() const { return m_ok; }

    // A screen class of its own (so the registry has never built it), its
    // template and the transition to it; the template's descriptor.
    Toolkit::smart_ptr<BaseCtrlDescriptor> AddScreen(const std::string& className, const wchar_t* transition,
                                                     const wchar_t* sequence)
    {
        const TString<wchar_t> name(className.begin(), className.end());
        auto factory = CtrlFactory::Instance();
        factory->AddGenerator(name, CtrlGenerator<ScreenDescriptor, ScreenCtrl, PlainScreen>::Make());
        XMLLoader loader;
        loader.SetResources(Appearance::Instance().get());
        const std::string xml = screenDescription(className);
        loader.LoadFromBytes(xml.data(), xml.size());
        auto descriptor = factory->CreateDescriptor(loader.GetRootNode());
        TemplateManager::Instance()->Add(descriptor);
        Singleton<TransitionManager>::Instance()->Add(transition, ScreenTransition::Make(sequence, L"Main", name));
        return descriptor;
    }
    // Carries out the event; true when the named screen is then on show.
    bool Switch(int id, const std::string& screen)
    {
        Singleton<SequenceManager>::Instance()->DoEvent(id);
        ScreenCtrl* shown = m_dashboard->GetCurrentRunningScreen();
        return shown && shown->GetDescriptor()->GetClass() == TString<wchar_t>(screen.begin(), screen.end());
    }
    IDashboard& Dashboard() { return *m_dashboard; }

private:
    bench::DefaultPack m_pack;
    bool m_ok = false;
    XMLLoader m_loader;
    BenchDashboard* m_dashboard = nullptr;
};

bool ready(const Navigation& navigation, benchmark::State& state)
{
    if (!navigation.Ok())
        state.SkipWithError("the default pack or the home screen did not load");
    return navigation.Ok();
}

void BM_SwitchToScreenFirstTime(benchmark::State& state)
{
    Navigation navigation;
    if (!ready(navigation, state))
        return;
    int screens = 0;
    for (auto _ : state) {
        state.PauseTiming();
        // The screen built last time is never asked for again: it goes, so
        // that every switch builds among as many windows as the build in
        // code does.
        ScreenCtrl* built = navigation.Dashboard().GetCurrentRunningScreen();
        navigation.Switch(ID_HOME, "HomeBench");
        if (screens > 0) {
            built->Destroy();
            wxTheApp->ProcessIdle();
        }
        const std::string screen = "Bench" + std::to_string(screens++);
        navigation.AddScreen(screen, L"TBench", L"Bench");
        state.ResumeTiming();
        if (!navigation.Switch(ID_MAP, screen))
            state.SkipWithError("the switch did not happen");
    }
}
// Every iteration adds a screen class and template: a fixed count.
BENCHMARK(BM_SwitchToScreenFirstTime)->Unit(benchmark::kMillisecond)->Iterations(100);

void BM_SwitchToScreenAlreadyBuilt(benchmark::State& state)
{
    Navigation navigation;
    if (!ready(navigation, state))
        return;
    navigation.AddScreen("BenchBuilt", L"TBench", L"Bench");
    navigation.Switch(ID_MAP, "BenchBuilt");
    for (auto _ : state) {
        state.PauseTiming();
        navigation.Switch(ID_HOME, "HomeBench");
        state.ResumeTiming();
        if (!navigation.Switch(ID_MAP, "BenchBuilt"))
            state.SkipWithError("the switch did not happen");
    }
}
BENCHMARK(BM_SwitchToScreenAlreadyBuilt)->Unit(benchmark::kMillisecond);

// The same 50 controls built in code: a screen and each control made and
// loaded by hand from the parsed descriptions, no template, no navigation.
void BM_Build50ControlsInCode(benchmark::State& state)
{
    Navigation navigation;
    if (!ready(navigation, state))
        return;
    auto descriptor = navigation.AddScreen("BenchDirect", L"TDirect", L"Direct");
    auto* resources = Appearance::Instance().get();
    wxWindow* placeholder = navigation.Dashboard().GetControlPlaceholder();
    for (auto _ : state) {
        auto* screen = new ScreenCtrl(placeholder, wxID_ANY, descriptor->GetBounds(), false);
        screen->SetResources(resources);
        screen->LoadDescriptor(descriptor);
        for (const auto& child : descriptor->GetControls()) {
            Control* control = nullptr;
            if (child->GetClass() == L"ButtonCtrl")
                control = new ButtonCtrl(screen, child->GetId(), child->GetBounds());
            else
                control = new StaticTextCtrl(screen, child->GetId(), child->GetBounds());
            control->SetResources(resources);
            control->LoadDescriptor(child);
        }
        screen->Show(true);
        screen->Update();
        state.PauseTiming();
        screen->Destroy();
        wxTheApp->ProcessIdle();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Build50ControlsInCode)->Unit(benchmark::kMillisecond);

} // namespace

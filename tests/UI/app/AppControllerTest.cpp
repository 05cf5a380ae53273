// The application object, its controller and module, and the host started
// twice: the second start brings the first window to the front and ends with
// success.
#include "PeerProcess.h"
#include "TestSupport.h"
#include "Toolkit/DynamicLibrary.h"
#include "app/App.h"
#include "app/AppController.h"
#include "app/IPCActivateAppConnection.h"

#include <gtest/gtest.h>

#include <wx/frame.h>

#include <chrono>
#include <filesystem>
#include <future>
#include <string>
#include <thread>
#include <vector>

using namespace UIKit;

namespace {

class Listener final : public AppEvent {
public:
    Listener(std::vector<std::string>& log, std::string name, bool allow)
        : m_log(log), m_name(std::move(name)), m_allow(allow)
    {
    }
    bool OnAppRequestClose() override
    {
        m_log.push_back(m_name);
        return m_allow;
    }
    void OnAppStopping() override { m_log.push_back(m_name + " stops"); }

private:
    std::vector<std::string>& m_log;
    std::string m_name;
    bool m_allow;
};

Toolkit::smart_ptr<AppEvent> listener(std::vector<std::string>& log, const std::string& name, bool allow)
{
    return Toolkit::smart_ptr<AppEvent>(new Listener(log, name, allow));
}

TEST(AppControllerTest, CloseRequestsStopAtTheFirstVetoAndEveryEntryIsAskedInOrder)
{
    AppController controller;
    EXPECT_TRUE(controller.DispatchAppRequestClose()) << "nobody to object";

    std::vector<std::string> log;
    for (const auto& [name, allow] : std::vector<std::pair<std::string, bool>>{{"A", true}, {"B", false}, {"C", true}})
        controller.AddListener(listener(log, name, allow));
    EXPECT_FALSE(controller.DispatchAppRequestClose());
    EXPECT_EQ(log, (std::vector<std::string>{"A", "B"})) << "C is not asked after B's veto";

    log.clear();
    controller.DispatchAppStopping();
    EXPECT_EQ(log, (std::vector<std::string>{"A stops", "B stops", "C stops"}));
}

// A listener that, while it is called, changes the list from another thread
// and waits for that thread: the list must not be locked during the call.
class ChangingListener final : public AppEvent {
public:
    ChangingListener(AppController& controller, Toolkit::smart_ptr<AppEvent> added)
        : m_controller(controller), m_added(std::move(added))
    {
    }
    bool OnAppRequestClose() override
    {
        change();
        return true;
    }
    void OnAppStopping() override { change(); }
    Toolkit::smart_ptr<AppEvent> self;
    bool changedInTime = false;

private:
    void change()
    {
        auto done = std::async(std::launch::async, [this] {
            m_controller.RemoveListener(self);
            m_controller.AddListener(m_added);
        });
        changedInTime = done.wait_for(std::chrono::seconds(5)) == std::future_status::ready;
    }
    AppController& m_controller;
    Toolkit::smart_ptr<AppEvent> m_added;
};

TEST(AppControllerTest, ListenersAreCalledOutsideTheLockOnTheListOfTheRoundsStart)
{
    for (bool stopping : {false, true}) {
        AppController controller;
        std::vector<std::string> log;
        auto late = listener(log, "late", true);
        auto* changing = new ChangingListener(controller, late);
        Toolkit::smart_ptr<AppEvent> changer(changing);
        changing->self = changer;
        controller.AddListener(changer);
        controller.AddListener(listener(log, "B", true));
        if (stopping)
            controller.DispatchAppStopping();
        else
            EXPECT_TRUE(controller.DispatchAppRequestClose());
        EXPECT_TRUE(changing->changedInTime) << "a listener waiting on the list deadlocks";
        EXPECT_EQ(log, (std::vector<std::string>{stopping ? "B stops" : "B"})) << "added during the round";
        log.clear();
        controller.DispatchAppStopping();
        EXPECT_EQ(log, (std::vector<std::string>{"B stops", "late stops"}));
        changing->self.ReleaseRef();
    }
}

// The host's top window; counts how often it is brought forward.
class TopWindow : public wxFrame {
public:
    TopWindow() : wxFrame(nullptr, wxID_ANY, "top") {}
    void Raise() override { ++raised; }
    int raised = 0;
};

// A UIKit::App standing in for the host's application object while the test
// binary's own application stays wxTheApp (constructing an application
// object makes it the instance, so the previous one is put back).
class StandInApp {
public:
    StandInApp() : m_previous(wxApp::GetInstance())
    {
        m_app = new App();
        wxApp::SetInstance(m_previous);
        App::m_wxApp = m_app;
        m_app->SetTopWindow(&m_top);
    }
    ~StandInApp()
    {
        App::m_wxApp = nullptr;
        delete m_app;
        wxApp::SetInstance(m_previous);
    }
    StandInApp(const StandInApp&) = delete;
    StandInApp& operator=(const StandInApp&) = delete;

    // Runs everything queued on the stand-in before this call (its queue is
    // first in, first out), so a raise posted earlier has happened after it.
    void Drain()
    {
        bool done = false;
        m_app->CallAfter([&] { done = true; });
        ASSERT_TRUE(testsupport::ProcessEventsUntil([&] { return done; }));
    }

    TopWindow m_top;

private:
    wxAppConsole* m_previous;
    App* m_app;
};

TEST(IPCActivateAppConnectionTest, OnlyTheExactCommandRaisesTheTopWindowOnTheGuiThread)
{
    IPCActivateAppConnection connection;
    // Without the application object nothing is posted anywhere.
    ASSERT_EQ(App::m_wxApp, nullptr);
    std::thread([&] { connection.OnExecute(L"IPC_ACTIVATE"); }).join();

    StandInApp app;
    for (const auto& [command, raises] : {std::pair{L"IPC_ACTIVATE", 1}, std::pair{L"IPC_ACTIVATE ", 0}}) {
        app.m_top.raised = 0;
        std::thread([&] { connection.OnExecute(command); }).join();
        EXPECT_EQ(app.m_top.raised, 0) << "the raise waits for the GUI thread";
        app.Drain();
        EXPECT_EQ(app.m_top.raised, raises) << std::wstring(command);
    }
}

// A plug-in built with hidden visibility reads the controller through the
// slot: it must see the host's instance, not a private slot of its own.
TEST(LibModuleTest, APluginReadsTheHostsManagerThroughTheSharedSlot)
{
    const bool made = UIKit::AppController::s_pInstance == nullptr;
    UIKit::AppController::CreateInstance();
    auto host = UIKit::AppController::Instance();
    ASSERT_FALSE(host.IsNull());
    Toolkit::DynamicLibrary plugin;
    ASSERT_TRUE(plugin.Load(std::string(UIKIT_LIB_DIR) + "/libslot_reader.so"));
    auto read = reinterpret_cast<void* (*)()>(plugin.GetSymbol("SlotReaderAppController"));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read(), host.get());
    host.ReleaseRef();
    if (made)
        UIKit::AppController::ReleaseInstance();
}

bool listening(const testsupport::TempDir& home)
{
    for (const auto& entry : std::filesystem::recursive_directory_iterator(home.Path()))
        if (entry.path().extension() == ".ipc")
            return true;
    return false;
}

TEST(SecondStartTest, BringsTheFirstWindowForwardAndExitsWithSuccess)
{
    const std::string host = std::string(UIKIT_BIN_DIR) + "/connection-manager";
    ASSERT_TRUE(std::filesystem::exists(host)) << host;
    // Run-time, state and configuration folders of both starts in one place.
    testsupport::TempDir home;
    std::vector<std::string> environment;
    for (const char* name : {"UIKIT_RUNTIME_DIR", "UIKIT_STATE_DIR", "UIKIT_CONFIG_DIR"})
        environment.push_back(std::string(name) + "=" + home.Str());
    testsupport::PeerProcess first({}, host, environment);
    ASSERT_TRUE(first.Started());
    // The first start opens its activation channel once its pack is loaded.
    ASSERT_TRUE(testsupport::ProcessEventsUntil([&] { return listening(home); }, 20000))
        << "the first start never opened its activation channel";

    testsupport::PeerProcess second({}, host, environment);
    bool told = false;
    for (int line = 0; line < 50 && !told; ++line)
        told = second.ReadLine().find("brought its window to the front") != std::string::npos;
    EXPECT_EQ(second.Wait(), 0);
    EXPECT_TRUE(told);
}

} // namespace

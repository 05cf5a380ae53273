// Screens: built once by name, standard buttons and keys, the Tab ring, and
// the worker screen's job and progress panel.
#include "../../descriptors/DescriptorTestSupport.h"
#include "../../frames/TestDashboard.h"
#include "controls/ButtonCtrl.h"
#include "controls/EditTextCtrl.h"
#include "controls/StandardControls.h"
#include "descriptors/ScreenDescriptor.h"
#include "factory/ControlIds.h"
#include "factory/CtrlGenerator.h"
#include "navigation/ScreenCtrl.h"
#include "navigation/ScreenManager.h"
#include "util/Util.h"

#include <wx/app.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

using namespace UIKit;
using descriptortest::Document;

namespace screentest {

std::vector<std::string> g_journal;
int g_built = 0;

class TestScreen : public ScreenCtrl {
public:
    TestScreen(wxWindow* parent, int id, const wxRect& rect, bool worker = false)
        : ScreenCtrl(parent, id, rect, worker)
    {
        ++g_built;
    }
    bool DoEvent(int id) override
    {
        g_journal.push_back("event:" + std::to_string(id));
        return false;
    }
};

// Its job waits at a gate; it counts the progress-panel updates it gets.
class WorkScreen : public TestScreen {
public:
    WorkScreen(wxWindow* parent, int id, const wxRect& rect) : TestScreen(parent, id, rect, true) {}
    ~WorkScreen() override { Stop(); }
    void OnDoWork() override
    {
        ++jobs;
        entered.Set();
        gate.Wait();
    }
    void OnWorkerThreadStarted(wxCommandEvent& event) override
    {
        ++s_updates;
        ScreenCtrl::OnWorkerThreadStarted(event);
    }
    void OnWorkerThreadFinished(wxCommandEvent& event) override
    {
        ++s_updates;
        ScreenCtrl::OnWorkerThreadFinished(event);
    }
    std::atomic<int> jobs{0};
    Toolkit::EventObject entered{false, false};
    Toolkit::EventObject gate{true, false};
    static int s_updates;
};
int WorkScreen::s_updates = 0;

struct RecordingDelegate : IDelegate {
    void doFlush() override { g_journal.push_back("flush"); }
    void doRollback() override { g_journal.push_back("rollback"); }
};

struct RecordingSource : IDataSource {
    RecordingSource() : IDataSource(TString<wchar_t>()) {}
    void doAddItem() override { g_journal.push_back("add"); }
    void doDeleteItemFromRowIndex(unsigned int row) override { g_journal.push_back("delete:" + std::to_string(row)); }
    void doEditItemFromRowIndex(unsigned int row) override { g_journal.push_back("edit:" + std::to_string(row)); }
};

class Dashboard : public frametest::TestDashboard {
public:
    Dashboard() { m_pControlPlaceholder = new PanelCtrl(this, wxID_ANY, wxRect(0, 0, 200, 150)); }
};

const char* const c_buttons = R"(<Control class="TestScreen" bounds="0,0,200,150">
    <Control class="PanelCtrl" name="Box"><Control class="ButtonCtrl" name="Ok" id="ID_OK"/></Control>
    <Control class="ButtonCtrl" name="Cancel" id="ID_CANCEL"/>
    <Control class="ButtonCtrl" name="Add" id="ID_ADD"/>
    <Control class="ButtonCtrl" name="Edit" id="ID_EDIT"/>
    <Control class="ButtonCtrl" name="Skip" id="ID_SKIP"/></Control>)";

const char* const c_fields = R"(<Control class="TestScreen" bounds="0,0,200,150">
    <Control class="EditTextCtrl" name="A"/><Control class="EditTextCtrl" name="B"/>
    <Control class="PanelCtrl" name="Box"><Control class="EditTextCtrl" name="C"/></Control></Control>)";

const char* const c_worker = R"(<Control class="WorkScreen" bounds="0,0,200,150">
    <Control class="ButtonCtrl" name="Ok" id="ID_OK"/><Control class="ButtonCtrl" name="Cancel" id="ID_CANCEL"/>
    <Control class="ButtonCtrl" name="Edit" id="ID_EDIT"/>
    <Control class="PanelCtrl" name="ProgressPanel"><Control class="PanelCtrl" name="Spinner"/></Control>
    <Control class="PanelCtrl" name="List"/></Control>)";

class ScreenTest : public descriptortest::FactoryFixture {
protected:
    void SetUp() override
    {
        FactoryFixture::SetUp();
        RegisterStandardControls(Factory());
        for (const wchar_t* name : {L"TestScreen", L"Home", L"Later"})
            Factory().AddGenerator(name, CtrlGenerator<ScreenDescriptor, TestScreen>::Make());
        Factory().AddGenerator(L"WorkScreen", CtrlGenerator<ScreenDescriptor, WorkScreen>::Make());
        ScreenManager::CreateInstance();
        m_dashboard = new Dashboard();
        IDashboard::s_pCurrent = m_dashboard;
        g_journal.clear();
        g_built = 0;
    }
    void TearDown() override
    {
        IDashboard::s_pCurrent = nullptr;
        m_dashboard->Destroy();
        ScreenManager::ReleaseInstance();
        FactoryFixture::TearDown();
    }
    template <class S = TestScreen>
    S* Build(const char* xml)
    {
        const Document doc(xml);
        return dynamic_cast<S*>(Factory().CreateControl(Factory().CreateDescriptor(doc.Root()),
                                                        m_dashboard->GetControlPlaceholder(), -1));
    }
    void AddTemplate(const char* cls)
    {
        const Document doc(std::string("<Templates><Control class=\"") + cls + "\"/></Templates>");
        TemplateManager::Instance()->Load(doc.Root(), Factory());
    }
    template <class C = Control>
    static C* Named(wxWindow* screen, const char* name)
    {
        return Util::FindControl<C>(screen, TString<wchar_t>(std::wstring(name, name + strlen(name))), true);
    }
    Dashboard* m_dashboard = nullptr;
};

TEST_F(ScreenTest, ManagerBuildsOnceAndRetriesFailures)
{
    AddTemplate("Home");
    AddTemplate("PanelCtrl");
    ScreenManager& screens = *ScreenManager::Instance();
    ScreenCtrl* home = screens.Get(L"Home");
    ASSERT_NE(home, nullptr);
    EXPECT_EQ(screens.Get(L"Home"), home);
    EXPECT_EQ(g_built, 1);
    EXPECT_FALSE(home->IsShown()) << "a screen is built hidden";
    EXPECT_EQ(home->GetParent(), m_dashboard->GetControlPlaceholder());

    EXPECT_EQ(screens.Get(L"PanelCtrl"), nullptr) << "a template that is not a screen";
    {
        descriptortest::ErrorCapture errors;
        EXPECT_EQ(screens.Get(L"Later"), nullptr);
        EXPECT_EQ(errors.Lines(), std::vector<std::string>{"undefined template 'Later'"});
    }
    AddTemplate("Later");
    EXPECT_NE(screens.Get(L"Later"), nullptr) << "a failed build is not remembered";
    IDashboard::s_pCurrent = nullptr;
    EXPECT_EQ(screens.Get(L"Other"), nullptr);
    EXPECT_EQ(screens.Size(), 2u);
}

// Setup: "hide"/"disable"/"destroy" a named control first. Action: "enter",
// "esc", or a click on that id (integer 3), sent through the button when
// there is one.
TEST_F(ScreenTest, StandardButtonsAndKeys)
{
    struct Case {
        const char* setup;
        const char* target;
        const char* action;
        std::vector<std::string> journal;
    };
    const std::string skip = "event:" + std::to_string(ID_SKIP);
    const Case cases[] = {
        {"", "", "enter", {"flush"}},
        {"hide", "Ok", "enter", {}},
        {"hide", "Box", "enter", {}},
        {"disable", "Ok", "enter", {}},
        {"destroy", "Ok", "enter", {}},
        {"", "", "esc", {"rollback"}},
        {"hide", "Cancel", "esc", {}},
        {"disable", "Cancel", "esc", {}},
        {"", "", "ID_ADD", {"add"}},
        {"", "", "ID_DELETE", {"delete:3"}},
        {"", "", "ID_EDIT", {"edit:3"}},
        {"", "", "ID_OK", {"flush"}},
        {"", "", "ID_SKIP", {skip}},
    };
    RecordingDelegate delegate;
    RecordingSource source;
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.setup) + " " + c.target + " " + c.action);
        TestScreen* screen = Build(c_buttons);
        ASSERT_NE(screen, nullptr);
        screen->SetDelegate(&delegate);
        screen->SetDataSource(&source);
        const std::string setup = c.setup;
        if (setup == "hide")
            Named(screen, c.target)->Show(false);
        else if (setup == "disable")
            Named(screen, c.target)->Enable(false);
        else if (setup == "destroy")
            Named(screen, c.target)->Destroy();
        g_journal.clear();

        const std::string action = c.action;
        if (action == "enter" || action == "esc") {
            wxCommandEvent key(action == "enter" ? PanelCtrl::EVT_KEYPRESSED_ENTER : PanelCtrl::EVT_KEYPRESSED_ESC);
            screen->GetEventHandler()->ProcessEvent(key);
        } else {
            const int id = LookupSymbolicId(action);
            wxWindow* button = Util::FindControl(screen, id);
            wxCommandEvent click(wxEVT_BUTTON, id);
            click.SetInt(3);
            (button ? button : screen)->GetEventHandler()->ProcessEvent(click);
        }
        EXPECT_EQ(g_journal, c.journal);
        screen->Destroy();
    }
}

// Focused field, fields hidden first (one letter each; X hides the panel
// holding C), and the field Tab moves to ('-' for none).
TEST_F(ScreenTest, TabRing)
{
    struct Case {
        const char* focused;
        const char* hidden;
        char next;
    };
    const Case cases[] = {
        {"", "", '-'}, {"A", "", 'B'}, {"B", "", 'C'}, {"C", "", 'A'},
        {"A", "B", 'C'}, {"B", "X", 'A'}, {"A", "BC", '-'}, {"B", "B", 'C'},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.focused) + "/" + c.hidden);
        TestScreen* screen = Build(c_fields);
        ASSERT_NE(screen, nullptr);
        for (const char* h = c.hidden; *h; ++h)
            Named(screen, *h == 'X' ? "Box" : std::string(1, *h).c_str())->Show(false);
        wxCommandEvent focus;
        if (*c.focused)
            Named<EditTextCtrl>(screen, c.focused)->OnEditTextSetFocus(focus);
        EditTextCtrl* next = screen->NextTabField();
        EXPECT_EQ(next ? char(next->GetName()[0]) : '-', c.next);
        screen->Destroy();
    }
}

TEST_F(ScreenTest, WorkerJobRunsOnceAndLeavesEditDisabled)
{
    WorkScreen::s_updates = 0;
    TestScreen* plain = Build(c_buttons);
    plain->ScreenSlideEnter();
    EXPECT_EQ(WorkScreen::s_updates, 0) << "a screen without a worker starts no job";

    WorkScreen* screen = Build<WorkScreen>(c_worker);
    ASSERT_NE(screen, nullptr);
    screen->ScreenSlideEnter();
    EXPECT_FALSE(Named(screen, "Ok")->IsEnabled());
    EXPECT_FALSE(Named(screen, "Edit")->IsEnabled());
    EXPECT_TRUE(Named(screen, "Spinner")->IsShown());
    EXPECT_FALSE(Named(screen, "List")->IsShown());
    screen->entered.Wait();
    screen->ScreenSlideEnter();
    screen->gate.Set();
    while (screen->IsBusy())
        std::this_thread::yield();
    wxTheApp->ProcessPendingEvents();

    EXPECT_EQ(screen->jobs, 1) << "entering again while the job runs starts no second job";
    EXPECT_TRUE(Named(screen, "Ok")->IsEnabled());
    EXPECT_TRUE(Named(screen, "Cancel")->IsEnabled());
    EXPECT_FALSE(Named(screen, "Edit")->IsEnabled());
    EXPECT_FALSE(Named(screen, "ProgressPanel")->IsShown());
    EXPECT_FALSE(Named(screen, "Spinner")->IsShown());
    EXPECT_TRUE(Named(screen, "List")->IsShown());
}

TEST_F(ScreenTest, EventsOfADestroyedScreenReachNobody)
{
    for (int round = 0; round < 10; ++round) {
        WorkScreen* screen = Build<WorkScreen>(c_worker);
        ASSERT_NE(screen, nullptr);
        screen->gate.Set();
        screen->ScreenSlideEnter();
        screen->entered.Wait();
        WorkScreen::s_updates = 0;
        // Its job may still run, and its events wait in the queue.
        screen->Destroy();
        wxTheApp->ProcessPendingEvents();
        EXPECT_EQ(WorkScreen::s_updates, 0);
    }
}

} // namespace screentest

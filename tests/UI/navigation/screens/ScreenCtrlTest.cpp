// Screens: built once by name, standard buttons and keys, the keyboard, and
// the worker screen's job, progress panel and end; the screen state that
// shows a screen for the navigation, and an event row whose transition is
// missing, reported against its file and line.
#include "../../descriptors/DescriptorTestSupport.h"
#include "../../frames/TestDashboard.h"
#include "ErrorCapture.h"
#include "TestSupport.h"

#include "controls/EditTextCtrl.h"
#include "controls/StandardControls.h"
#include "descriptors/ScreenDescriptor.h"
#include "factory/ControlIds.h"
#include "factory/CtrlGenerator.h"
#include "navigation/EventManager.h"
#include "navigation/PreviousSequenceParameter.h"
#include "navigation/ScreenCtrl.h"
#include "navigation/ScreenManager.h"
#include "navigation/ScreenTransition.h"
#include "navigation/SequenceManager.h"
#include "navigation/TransitionManager.h"
#include "util/Util.h"
#include "xml/XMLLoader.h"
#include "xml/XMLNode.h"

#include <gtest/gtest.h>

#include <wx/app.h>

#include <string>
#include <thread>
#include <vector>

using namespace UIKit;

namespace screentest {

std::vector<std::string> g_journal;

// A worker screen that is its own delegate and data source, as every
// screen is by default; records what reaches it. Its job waits at the gate.
class TestScreen : public ScreenCtrl {
public:
    TestScreen(wxWindow* parent, int id, const wxRect& rect) : ScreenCtrl(parent, id, rect, true) {}
    ~TestScreen() override { Stop(); }
    bool DoEvent(int id) override { return note("event:" + std::to_string(id)); }
    void doFlush() override { note("flush"); }
    void doRollback() override { note("rollback"); }
    void doDeleteItemFromRowIndex(unsigned int row) override { note("delete:" + std::to_string(row)); }
    void OnWorkerThreadFinished(wxCommandEvent& event) override
    {
        note("finished");
        ScreenCtrl::OnWorkerThreadFinished(event);
    }
    void OnDoWork() override
    {
        note("job");
        entered.Set();
        gate.Wait();
    }
    static bool note(const std::string& what) { return g_journal.push_back(what), false; }
    Toolkit::EventObject entered{false, false};
    Toolkit::EventObject gate{true, false};
};

class ScreenTest : public descriptortest::FactoryFixture {
protected:
    void SetUp() override
    {
        FactoryFixture::SetUp();
        RegisterStandardControls(Factory());
        for (const wchar_t* name : {L"TestScreen", L"Home", L"Later"})
            Factory().AddGenerator(name, CtrlGenerator<ScreenDescriptor, TestScreen>::Make());
        ScreenManager::CreateInstance();
        IDashboard::s_pCurrent = m_dashboard = new frametest::TestDashboard();
        g_journal.clear();
    }
    void TearDown() override
    {
        IDashboard::s_pCurrent = nullptr;
        m_dashboard->Destroy();
        ScreenManager::ReleaseInstance();
        FactoryFixture::TearDown();
    }
    TestScreen* Build(const std::string& children)
    {
        const descriptortest::Document doc("<Control class=\"TestScreen\">" + children + "</Control>");
        auto* screen = dynamic_cast<TestScreen*>(
            Factory().CreateControl(Factory().CreateDescriptor(doc.Root()), m_dashboard->GetControlPlaceholder(), -1));
        g_journal.clear();
        return screen;
    }
    void AddTemplate(const std::string& cls)
    {
        const descriptortest::Document doc("<Templates><Control class=\"" + cls + "\"/></Templates>");
        TemplateManager::Instance()->Load(doc.Root(), Factory());
    }
    static Control* Named(wxWindow* screen, const char* name)
    {
        return Util::RecursiveFindControl(screen, TString<wchar_t>(wxString(name).ToStdWstring()));
    }
    frametest::TestDashboard* m_dashboard = nullptr;
};

TEST_F(ScreenTest, ManagerBuildsOnceAndRetriesFailures)
{
    AddTemplate("Home");
    ScreenManager& screens = *ScreenManager::Instance();
    ScreenCtrl* home = screens.Get(L"Home");
    ASSERT_NE(home, nullptr);
    EXPECT_EQ(screens.Get(L"Home"), home);
    descriptortest::ErrorCapture errors; // the report is the factory test's
    EXPECT_EQ(screens.Get(L"Later"), nullptr);
    AddTemplate("Later");
    EXPECT_NE(screens.Get(L"Later"), nullptr) << "a failed build is not remembered";
    EXPECT_EQ(m_dashboard->GetControlPlaceholder()->GetChildren().size(), 2u) << "each screen built once";
}

// Controls: O(K) in panel P, C(ancel), S(kip). Setup: hide, disable or
// destroy (h, d, x) a control. Action: a key, or a click on an id (integer
// 3), sent through its button when there is one.
TEST_F(ScreenTest, StandardButtonsAndKeys)
{
    struct Case { const char* setup; wxEventType key; int click; std::vector<std::string> journal; };
    const wxEventType enter = PanelCtrl::EVT_KEYPRESSED_ENTER;
    const Case cases[] = {
        {"", enter, 0, {"flush"}}, {"hO", enter, 0, {}}, {"hP", enter, 0, {}}, {"dO", enter, 0, {}},
        {"xO", enter, 0, {}}, {"", PanelCtrl::EVT_KEYPRESSED_ESC, 0, {"rollback"}},
        {"", wxEVT_BUTTON, ID_DELETE, {"delete:3"}}, {"", wxEVT_BUTTON, ID_SKIP, {"event:8022"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.setup << " " << c.click);
        TestScreen* screen = Build(R"(<Control class="PanelCtrl" name="P"><Control class="ButtonCtrl" name="O"
            id="ID_OK"/></Control><Control class="ButtonCtrl" name="C" id="ID_CANCEL"/>
            <Control class="ButtonCtrl" name="S" id="ID_SKIP"/>)");
        Control* target = *c.setup ? Named(screen, c.setup + 1) : nullptr;
        if (*c.setup == 'h')
            target->Show(false);
        else if (*c.setup == 'd')
            target->Enable(false);
        else if (*c.setup == 'x')
            target->Destroy();
        wxCommandEvent event(c.key, c.click);
        event.SetInt(3);
        wxWindow* button = c.click ? Util::FindControl(screen, c.click) : nullptr;
        (button ? button : screen)->GetEventHandler()->ProcessEvent(event);
        EXPECT_EQ(g_journal, c.journal);
        screen->Destroy();
    }
}

// Field A; buttons D (disabled), S (skip, in panel P), O(K), co(N)nect,
// C(ancel), B(ack). Setup: hide or disable (h, d) a control; the focused
// stop ('-' for none); keys (t Tab, T Shift+Tab, e Enter, x Esc, 3 F3,
// which is left to the hot keys); the stop focused after and the journal.
TEST_F(ScreenTest, KeyboardMovesFocusAndPressesButtons)
{
    struct Case { const char *setup, *focused, *keys, *after; std::vector<std::string> journal; };
    const Case cases[] = {
        {"", "-", "t", "A", {}},          {"", "A", "t", "S", {}},         {"", "B", "t", "A", {}},
        {"", "A", "T", "B", {}},          {"hP", "A", "t", "O", {}},
        {"", "A", "e", "A", {"flush"}},   {"", "S", "e", "S", {"event:8022"}},
        {"dO", "A", "e", "A", {"event:8038"}}, {"dOdN", "A", "e", "A", {}},
        {"", "O", "x", "O", {"rollback"}}, {"hC", "A", "x", "A", {"event:8017"}}, {"", "A", "3", "A", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.setup << " " << c.focused << " " << c.keys);
        TestScreen* screen = Build(R"(<Control class="EditTextCtrl" name="A"/>
            <Control class="ButtonCtrl" name="D" id="ID_EDIT" enable="no"/><Control class="PanelCtrl" name="P">
            <Control class="ButtonCtrl" name="S" id="ID_SKIP"/></Control><Control class="ButtonCtrl" name="O"
            id="ID_OK"/><Control class="ButtonCtrl" name="N" id="ID_CONNECT"/><Control class="ButtonCtrl" name="C"
            id="ID_CANCEL"/><Control class="ButtonCtrl" name="B" id="ID_BACK"/>)");
        for (const char* s = c.setup; *s; s += 2) {
            Control* target = Named(screen, std::string(1, s[1]).c_str());
            (s[0] == 'h') ? target->Show(false) : target->Enable(false);
        }
        if (*c.focused != '-') {
            wxChildFocusEvent focus(Named(screen, c.focused));
            screen->GetEventHandler()->ProcessEvent(focus);
        }
        for (const char* k = c.keys; *k; ++k) {
            // Sent where the focus is: the key travels up to the screen.
            wxKeyEvent key(wxEVT_CHAR_HOOK);
            key.m_keyCode = *k == 'e' ? WXK_RETURN : *k == 'x' ? WXK_ESCAPE : *k == '3' ? WXK_F3 : WXK_TAB;
            key.SetShiftDown(*k == 'T');
            Control* from = screen->FocusedTabStop();
            (from ? static_cast<wxWindow*>(from) : screen)->GetEventHandler()->ProcessEvent(key);
        }
        Control* after = screen->FocusedTabStop();
        EXPECT_EQ(after ? after->GetName().ToStdString() : "-", c.after);
        EXPECT_EQ(g_journal, c.journal);
        screen->Destroy();
    }
}

// Buttons O(K) and E(dit), the progress panel with child P, and the list.
const char* const c_workerScreen = R"(<Control class="ButtonCtrl" name="O" id="ID_OK"/>
    <Control class="ButtonCtrl" name="E" id="ID_EDIT"/><Control class="PanelCtrl" name="ProgressPanel">
    <Control class="PanelCtrl" name="P"/></Control><Control class="PanelCtrl" name="List"/>)";

TEST_F(ScreenTest, WorkerJobRunsOnceAndEndsWithEditDisabled)
{
    TestScreen* screen = Build(c_workerScreen);
    screen->ScreenSlideEnter();
    EXPECT_TRUE(Named(screen, "P")->IsShown());
    screen->entered.Wait();
    screen->ScreenSlideEnter();
    screen->gate.Set();
    while (screen->IsBusy())
        std::this_thread::yield();
    wxTheApp->ProcessPendingEvents();
    EXPECT_EQ(g_journal, (std::vector<std::string>{"job", "finished"})) << "entering while the job runs starts none";
    EXPECT_TRUE(Named(screen, "O")->IsEnabled());
    EXPECT_FALSE(Named(screen, "E")->IsEnabled());
    EXPECT_TRUE(!Named(screen, "P")->IsShown() && Named(screen, "List")->IsShown());
}

// The navigation's glue to the rest of the library: a screen state asks the
// dashboard for its screen only when its sequence is on show, with the
// slide the navigation asked for, and its transition hands out the same
// state every time; an event row whose transition nobody registered is
// reported once, against the item file and line it came from.
class RecordingDashboard : public frametest::TestDashboard {
public:
    bool ShowScreen(const TString<wchar_t>& name, UIKit::Animation animation, int, int) override
    {
        shown.push_back(std::string(name.begin(), name.end()) + " " + std::to_string(int(animation)));
        return answer;
    }
    std::vector<std::string> shown;
    bool answer = true;
};

TEST(ScreenStateTest, ShowsItsScreenOnlyWhenVisibleWithTheAskedSlide)
{
    const Toolkit::smart_ptr<UIKit::IStateParameter> none;
    const Toolkit::smart_ptr<UIKit::IStateParameter> back(
        new UIKit::PreviousSequenceParameter(UIKit::AnimationSlideRight));
    // shown: the screen the dashboard was asked for and the slide, or empty
    struct Case {
        const char* what;
        bool visible;
        Toolkit::smart_ptr<UIKit::IStateParameter> parameter;
        bool answer;
        std::string shown;
    };
    const Case cases[] = {
        {"visible", true, none, true, "HomeScreen " + std::to_string(UIKit::AnimationSlideLeft)},
        {"hidden sequence", false, none, true, ""},
        {"back from another sequence", true, back, true, "HomeScreen " + std::to_string(UIKit::AnimationSlideRight)},
        {"dashboard cannot show it", true, none, false, "HomeScreen " + std::to_string(UIKit::AnimationSlideLeft)},
    };
    for (const auto& c : cases) {
        auto* dashboard = new RecordingDashboard();
        dashboard->answer = c.answer;
        UIKit::IDashboard::s_pCurrent = dashboard;
        UIKit::ScreenState state(L"Home", L"HomeMain", L"HomeScreen", UIKit::AnimationSlideLeft);
        EXPECT_EQ(state.Activate(c.visible, c.parameter), c.answer) << c.what;
        EXPECT_EQ(dashboard->shown, c.shown.empty() ? std::vector<std::string>{} : std::vector<std::string>{c.shown})
            << c.what;
        UIKit::IDashboard::s_pCurrent = nullptr;
        dashboard->Destroy();
    }
    UIKit::ScreenState orphan(L"Home", L"HomeMain", L"HomeScreen");
    EXPECT_FALSE(orphan.Activate(true, none)) << "no dashboard";
}

TEST(ScreenStateTest, TransitionHandsOutItsOneState)
{
    auto transition = UIKit::ScreenTransition::Make(L"Usage", L"UsageMain", L"UsageScreen");
    auto first = transition->DoTransition();
    ASSERT_FALSE(first.IsNull());
    EXPECT_EQ(first.get(), transition->DoTransition().get());
    EXPECT_EQ(first.DynamicCast<UIKit::ScreenState>()->GetScreenName(), L"UsageScreen");
}

TEST(EventRowErrorTest, UnknownTransitionIsReportedAgainstItsFileAndLine)
{
    UIKit::EventManager::CreateInstance();
    UIKit::TransitionManager::CreateInstance();
    UIKit::SequenceManager::CreateInstance();
    testsupport::TempDir dir;
    const auto path = dir.Write("items.xml", "<Plugin>\n" "  <Events sequence=\"RowErrors\">\n"
                                             "    <Event state=\"S\" id=\"ID_SKIP\" sequence=\"Elsewhere\"\n"
                                             "           transition=\"TNowhere\"/>\n" "  </Events>\n" "</Plugin>\n");
    UIKit::XMLLoader loader;
    ASSERT_TRUE(loader.LoadFromFile(path.string()));
    std::vector<Toolkit::smart_ptr<UIKit::XMLNode>> events;
    UIKit::XMLLoader(loader.GetRootNode()).GetNodes(events, "Events");
    ASSERT_EQ(events.size(), 1u);
    UIKit::EventManager::Instance()->Load(events[0]);

    testsupport::ErrorCapture errors;
    const auto sequences = UIKit::SequenceManager::Instance();
    const auto before = sequences->GetCurrentSequence();
    EXPECT_FALSE(sequences->DoEvent(L"RowErrors", L"S", 8022, {}));
    ASSERT_EQ(errors.Lines().size(), 1u);
    EXPECT_NE(errors.Lines()[0].find("items.xml:3: Transition [TNowhere] not found!"), std::string::npos)
        << errors.Lines()[0];
    EXPECT_EQ(sequences->GetCurrentSequence(), before);
    UIKit::SequenceManager::ReleaseInstance();
    UIKit::TransitionManager::ReleaseInstance();
    UIKit::EventManager::ReleaseInstance();
}

} // namespace screentest

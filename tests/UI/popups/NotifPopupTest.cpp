// Notification popups on the 1280 x 1024 test display: their slots, how the
// stack closes a gap, an ejecting popup that must not be moved, and
// requests made on other threads.
#include "../appearance/AppearanceTestSupport.h"
#include "../descriptors/DescriptorTestSupport.h"

#include "TestSupport.h"
#include "controls/StandardControls.h"
#include "factory/ControlIds.h"
#include "controls/ButtonCtrl.h"
#include "navigation/Sequence.h"
#include "navigation/SequenceManager.h"
#include "navigation/TransitionManager.h"
#include "popups/NotifPopupManager.h"
#include "popups/WinNotifPopup.h"
#include "util/Util.h"

#include <wx/app.h>

#include <set>
#include <thread>

using namespace UIKit;

namespace {

// Each run gives a new state named after the transition.
struct NamedTransition : ITransition {
    explicit NamedTransition(const wchar_t* name) : name(name) {}
    Toolkit::smart_ptr<IState> DoTransition() override { return Toolkit::smart_ptr<IState>(new IState(L"", name)); }
    const wchar_t* name;
};

class PopupTest : public descriptortest::FactoryFixture {
protected:
    void SetUp() override
    {
        FactoryFixture::SetUp();
        RegisterStandardControls(Factory());
        const auto pack = appearancetest::TestPackDir();
        m_pack.documents[L"notifpopup"] = testsupport::ReadFile(pack / "notifpopup.xml");
        for (const wchar_t* image : {L"background.png", L"button.png"})
            m_pack.images[image] = wxImage((pack / "graphics" / image).string());
        m_pack.strings["LB_TITLE"] = L"Title";
        m_pack.strings["LB_HELLO"] = L"Hello";
        Factory().SetResources(&m_pack);
        TransitionManager::CreateInstance();
        NotifPopupManager::CreateInstance();
        ASSERT_TRUE(Popups().Start());
    }
    void TearDown() override
    {
        NotifPopupManager::ReleaseInstance();
        TransitionManager::ReleaseInstance();
        FactoryFixture::TearDown();
    }
    static NotifPopupManager& Popups() { return *NotifPopupManager::Instance(); }
    // Opens popups whose action, if a sequence is given, runs transition "go" in it.
    static std::vector<WinNotifPopup*> Open(size_t count, const wchar_t* sequence = L"", bool flag = false)
    {
        const size_t before = Popups().GetPopups().size();
        for (size_t i = 0; i < count; ++i)
            Popups().AddWindow(L"message", false, L"Go", sequence, L"go", {}, flag);
        EXPECT_TRUE(testsupport::ProcessEventsUntil([&] { return Popups().GetPopups().size() == before + count; }));
        return Popups().GetPopups();
    }
    // Fires the popup's animation timer until it stops; the y of each tick.
    static std::vector<int> Settle(WinNotifPopup* popup)
    {
        std::vector<int> ys;
        for (int tick = 0; tick < 100 && popup->GetMainTimer().IsRunning(); ++tick) {
            popup->GetMainTimer().Notify();
            ys.push_back(popup->GetPosition().y);
        }
        return ys;
    }
    static std::vector<int> Ys(const std::vector<WinNotifPopup*>& popups)
    {
        std::vector<int> ys;
        for (auto* popup : popups)
            ys.push_back(popup->GetPosition().y);
        return ys;
    }

    descriptortest::FakeResources m_pack;
};

// Three 250 x 90 popups stand at x 980 and y 834, 734, 634; closing one
// moves only those above it, one slot down, in steps of a third of the rest.
TEST_F(PopupTest, SlotsAndRestackingAfterAClose)
{
    struct Case {
        size_t closed;
        std::vector<int> after;
        std::vector<bool> moving;
    };
    const std::vector<int> glide{33, 22, 15, 10, 6, 4, 3, 2, 1, 1, 1, 1, 1};
    for (const Case& c : {Case{0, {834, 734}, {true, true}}, Case{1, {834, 734}, {false, true}},
                          Case{2, {834, 734}, {false, false}}}) {
        SCOPED_TRACE(c.closed);
        auto popups = Open(3);
        ASSERT_EQ(popups.size(), 3u);
        EXPECT_EQ(Ys(popups), (std::vector<int>{834, 734, 634}));
        EXPECT_FALSE(popups[0]->GetPosition().x != 980 || popups[0]->GetCloseTimer().IsRunning());

        wxCommandEvent close(wxEVT_BUTTON, ID_FRAME_CLOSE);
        popups[c.closed]->GetEventHandler()->ProcessEvent(close);
        const auto left = Popups().GetPopups();
        ASSERT_EQ(left.size(), 2u);
        for (size_t i = 0; i < left.size(); ++i) {
            EXPECT_EQ(left[i]->GetTargetY(), c.after[i]);
            EXPECT_EQ(left[i]->GetMainTimer().IsRunning(), c.moving[i]) << i;
            int previous = left[i]->GetPosition().y;
            std::vector<int> steps;
            for (int y : Settle(left[i])) {
                steps.push_back(y - previous);
                previous = y;
            }
            if (c.moving[i]) {
                ASSERT_FALSE(steps.empty());
                EXPECT_EQ(std::vector<int>(steps.begin(), steps.end() - 1), glide) << "the last tick only stops";
            }
        }
        EXPECT_EQ(Ys(left), c.after);
        EXPECT_EQ(Ys(Open(1)).back(), 634) << "a new popup takes the next free slot";
        Popups().Stop();
    }
}

// While it slides out below the display, a popup ignores requests to move
// (a popup below it closing), then leaves the stack itself.
TEST_F(PopupTest, AnEjectingPopupDoesNotMove)
{
    auto popups = Open(3);
    WinNotifPopup* ejecting = popups[1];
    ejecting->StartEjectAnimation();
    wxCommandEvent close(wxEVT_BUTTON, ID_FRAME_CLOSE);
    popups[0]->GetEventHandler()->ProcessEvent(close);
    EXPECT_EQ(ejecting->GetPosition().y, 734);
    std::vector<int> ys = Settle(ejecting);
    ASSERT_GE(ys.size(), 2u);
    EXPECT_EQ(ys.back(), 1024) << "it ends just below the display";
    ys.pop_back();
    for (size_t i = 0; i < ys.size(); ++i)
        EXPECT_GT(ys[i], i ? ys[i - 1] : 734) << "ejecting only goes down, tick " << i;
    ASSERT_EQ(Popups().GetPopups(), std::vector<WinNotifPopup*>{popups[2]});
    Settle(popups[2]);
    EXPECT_EQ(popups[2]->GetPosition().y, 834) << "the popup above moved into both freed slots";
}

// Requests made on worker threads are posted: no window exists until the
// GUI thread runs its events, and then each request has its own slot.
TEST_F(PopupTest, RequestsFromThreadsOpenOnTheGuiThread)
{
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([] {
            for (int i = 0; i < 3; ++i)
                Popups().AddWindow(L"from a thread", true, L"Go", L"seq", L"state", {}, false);
        });
    for (auto& thread : threads)
        thread.join();
    EXPECT_TRUE(Popups().GetPopups().empty());
    ASSERT_TRUE(testsupport::ProcessEventsUntil([] { return Popups().GetPopups().size() == 12; }));
    std::set<int> slots;
    for (auto* popup : Popups().GetPopups()) {
        slots.insert(popup->GetTargetY());
        EXPECT_TRUE(popup->GetCloseTimer().IsRunning() && popup->GetCloseTimer().GetInterval() == 10000)
            << "the posted copy keeps the auto close";
    }
    EXPECT_EQ(slots.size(), 12u);
    EXPECT_EQ(*slots.begin(), 834 - 11 * 100);

    // A request made before Start() is dropped, also once started.
    NotifPopupManager::ReleaseInstance();
    NotifPopupManager::CreateInstance();
    Popups().AddWindow(L"too early", false, {}, {}, {}, {}, false);
    Popups().Start();
    wxTheApp->ProcessPendingEvents();
    EXPECT_TRUE(Popups().GetPopups().empty());
}

// The action button leads into its sequence; with the flag set and that
// sequence current it only closes; without the flag the state is entered
// afresh through the popup state. Every press closes the popup.
TEST_F(PopupTest, ActionButtonDrivesTheSequences)
{
    struct Case {
        const wchar_t* sequence;
        bool flag;
        bool buttonShown;
        std::vector<std::wstring> stack;
        bool freshState;
    };
    SequenceManager::CreateInstance();
    TransitionManager::Instance()->Add(L"go", Toolkit::smart_ptr<ITransition>(new NamedTransition(L"go")));
    for (const Case& c : {Case{L"", false, false, {L"Home"}, false}, Case{L"HOME", true, true, {L"Home"}, false},
                          Case{L"home", false, true, {L"popup::popupstate", L"Home"}, true},
                          Case{L"Settings", false, true, {L"Home", L"Settings"}, true}}) {
        SCOPED_TRACE(testing::Message() << std::wstring(c.sequence) << c.flag);
        SequenceManager& sequences = *SequenceManager::Instance();
        sequences.OnApplicationExit();
        sequences.DoTransition(L"Home", L"go", {});
        const auto before = sequences.GetCurrentSequence()->GetState();
        WinNotifPopup* popup = Open(1, c.sequence, c.flag).front();
        EXPECT_EQ(Util::FindControl<ButtonCtrl>(popup, L"ActionButton", true)->IsShown(), c.buttonShown);

        wxCommandEvent ok(wxEVT_BUTTON, ID_OK);
        popup->GetEventHandler()->ProcessEvent(ok);
        EXPECT_TRUE(Popups().GetPopups().empty());
        std::vector<std::wstring> stack;
        for (const auto& sequence : sequences.GetStack())
            stack.push_back(sequence->GetName());
        EXPECT_EQ(stack, c.stack);
        EXPECT_EQ(sequences.GetCurrentSequence()->GetState() != before, c.freshState);
    }
    SequenceManager::ReleaseInstance();
}

} // namespace

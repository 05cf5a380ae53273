// Events made on worker threads reach the sequence manager as posted
// SequenceDoEventEvents and are carried out on the main thread while it
// navigates itself; another thread reads the stack meanwhile. Run under
// ThreadSanitizer too.
#include "NavigationCore.h"

#include "navigation/AddContactParameter.h"
#include "navigation/SequenceDoEventEvent.h"

#include <wx/app.h>

#include <atomic>
#include <set>
#include <thread>

namespace navtest {
namespace {

using UIKit::SequenceDoEventEvent;

TEST_F(NavigationTest, EventsPostedFromWorkerThreadsAreCarriedOutOnTheMainThreadWhileItNavigates)
{
    for (int id = 1; id <= 3; ++id)
        addGlobalRow(id, L"S" + std::to_wstring(id));
    constexpr int c_workers = 4, c_eventsEach = 150;
    const auto parameter = Toolkit::make_smart<UIKit::AddContactParameter>(L"+441234");
    // What the device controller does on the GUI thread with a posted event.
    wxEvtHandler navigator;
    int handled = 0;
    Toolkit::smart_ptr<UIKit::IStateParameter> lastParameter;
    navigator.Bind(wxEventTypeTag<SequenceDoEventEvent>(SequenceDoEventEvent::EVT_SEQUENCE_DO_EVENT),
                   [&](SequenceDoEventEvent& event) {
                       ++handled;
                       if (sequences->DoEvent(event.GetSequence(), event.GetState(), event.GetEventId(),
                                              event.GetParameter()))
                           lastParameter = sequences->GetCurrentSequence()->GetState()->GetParameter();
                   });
    std::atomic<int> workersDone{0};
    std::atomic<bool> stop{false};

    std::vector<std::thread> threads;
    for (int w = 0; w < c_workers; ++w)
        threads.emplace_back([&, w] {
            for (int i = 0; i < c_eventsEach; ++i)
                navigator.AddPendingEvent(SequenceDoEventEvent(L"*", L"*", 1 + (w + i) % 3, parameter));
            ++workersDone;
        });
    threads.emplace_back([&] {
        while (!stop)
            for (const auto& sequence : sequences->GetStack())
                EXPECT_FALSE(sequence->GetName().empty());
    });

    for (int step = 0; workersDone < c_workers || handled < c_workers * c_eventsEach; ++step) {
        if (step % 4 == 3)
            sequences->PreviousSequence(UIKit::AnimationNone);
        else
            sequences->DoEvent(1 + step % 3);
        wxTheApp->ProcessPendingEvents();
    }
    stop = true;
    for (auto& thread : threads)
        thread.join();

    EXPECT_EQ(handled, c_workers * c_eventsEach);
    EXPECT_EQ(lastParameter, parameter); // the copy shares the parameter object
    std::set<const UIKit::Sequence*> distinct;
    for (const auto& sequence : sequences->GetStack())
        EXPECT_TRUE(distinct.insert(sequence.get()).second);
}

} // namespace
} // namespace navtest

// The listener list behind the event dispatchers: membership, delivery order
// and handlers removed or destroyed while other threads post.
#include "lists/ListenerList.h"

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/event.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace listenertest {

const wxEventType c_eventType = wxNewEventType();

std::vector<std::string> g_journal;

// Records what it receives; removes itself from the list before it dies, as
// every listener must.
class Recorder : public wxEvtHandler {
public:
    Recorder(std::string name, UIKit::ListenerList* list = nullptr, bool journal = true)
        : m_name(std::move(name)), m_list(list), m_journal(journal)
    {
        Bind(wxEventTypeTag<wxThreadEvent>(c_eventType), &Recorder::onEvent, this);
    }
    ~Recorder() override
    {
        if (m_list)
            m_list->RemoveHandler(this);
    }
    std::atomic<int> received{0};

private:
    void onEvent(wxThreadEvent& event)
    {
        ++received;
        if (m_journal)
            g_journal.push_back(m_name + std::to_string(event.GetInt()));
    }
    std::string m_name;
    UIKit::ListenerList* m_list;
    bool m_journal;
};

void post(UIKit::ListenerList& list, int value)
{
    wxThreadEvent event(c_eventType);
    event.SetInt(value);
    list.Post(event);
}

void deliver() { wxTheApp->ProcessPendingEvents(); }

// Each step: '+' adds, '-' removes, '0'..'9' posts that value; the journal
// is what the handlers received once the queues are run (each handler's
// queue in turn, the handlers in the order they were first queued to).
TEST(ListenerList, MembershipAndDeliveryOrder)
{
    struct Case { const char* steps; size_t size; std::vector<std::string> journal; };
    const Case cases[] = {
        {"1", 0, {}}, {"+a+a1", 1, {"a1"}}, {"+a+a-a1", 0, {}}, {"+a+b1", 2, {"a1", "b1"}},
        {"+b+a12", 2, {"b1", "b2", "a1", "a2"}}, {"+a1-a2+a3", 1, {"a1", "a3"}}, {"+a+b-a+a1", 2, {"b1", "a1"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.steps);
        Recorder a("a"), b("b");
        UIKit::ListenerList list;
        g_journal.clear();
        for (const char* step = c.steps; *step; ++step) {
            if (*step == '+' || *step == '-') {
                wxEvtHandler* handler = step[1] == 'a' ? &a : &b;
                *step == '+' ? list.AddHandler(handler) : list.RemoveHandler(handler);
                ++step;
            } else {
                post(list, *step - '0');
            }
        }
        deliver();
        EXPECT_EQ(list.Size(), c.size);
        EXPECT_EQ(g_journal, c.journal);
    }
}

// Worker threads post while this thread (the GUI thread here) removes,
// re-adds and destroys handlers and runs the queues. A handler that is gone
// receives nothing, nothing crashes, and the thread sanitizer sees no race.
TEST(ListenerList, ThreadsPostWhileHandlersComeAndGo)
{
    constexpr int c_threads = 4;
    constexpr int c_posts = 400;
    UIKit::ListenerList list;
    Recorder stays("stays", &list, false);
    list.AddHandler(&stays);

    std::atomic<int> running{c_threads};
    std::vector<std::thread> posters;
    for (int t = 0; t < c_threads; ++t)
        posters.emplace_back([&] {
            for (int i = 0; i < c_posts; ++i)
                post(list, i % 10);
            --running;
        });

    int rounds = 0;
    while (running > 0 || rounds < 3) {
        {
            // Destroyed with copies of events still queued to it.
            Recorder fleeting("fleeting", &list, false);
            list.AddHandler(&fleeting);
            std::this_thread::yield();
        }
        list.RemoveHandler(&stays);
        list.AddHandler(&stays);
        deliver();
        ++rounds;
    }
    for (std::thread& poster : posters)
        poster.join();
    deliver();

    EXPECT_EQ(list.Size(), 1u);
    EXPECT_TRUE(list.Contains(&stays));
    EXPECT_GT(stays.received.load(), 0);
    EXPECT_LE(stays.received.load(), c_threads * c_posts);
}

} // namespace listenertest

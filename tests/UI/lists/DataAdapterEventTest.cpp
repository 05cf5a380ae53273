// The row event and the data-adapter event types: copies made by the
// dispatcher keep every field, and the types are distinct and in order.
#include "lists/DataAdapterDataEvent.h"
#include "lists/DataAdapterEvent.h"
#include "lists/EventDispatcher.h"

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/frame.h>

#include <memory>
#include <vector>

namespace liststest {

using UIKit::DataAdapterEvent;

TEST(DataAdapterEvent, TypesAreDistinctAndNumberedInDeclarationOrder)
{
    const wxEventType types[] = {
        DataAdapterEvent::EVT_WORKING_PROGRESS_INIT_BEGIN, DataAdapterEvent::EVT_WORKING_PROGRESS_INIT_END,
        DataAdapterEvent::EVT_WORKING_PROGRESS_BEGIN,      DataAdapterEvent::EVT_WORKING_PROGRESS_END,
        DataAdapterEvent::EVT_WORKING_PROGRESS,            DataAdapterEvent::EVT_WORKING_PROGRESS_SPINNING,
        DataAdapterEvent::EVT_WORKING_PROGRESS_ERROR,      DataAdapterEvent::EVT_DATA_ADD,
        DataAdapterEvent::EVT_DATA_REMOVE,                 DataAdapterEvent::EVT_DATA_UPDATE,
        DataAdapterEvent::EVT_STATUS_CHANGED,              DataAdapterEvent::EVT_CONTROLER_CHANGED,
    };
    for (size_t i = 1; i < std::size(types); ++i)
        EXPECT_GT(types[i], types[i - 1]) << i;
    EXPECT_NE(types[0], wxEVT_NULL);
}

// A row event sent through a dispatcher reaches each listener as its own
// copy, with every field of the command event and the row.
TEST(DataAdapterDataEvent, DispatchedCopiesKeepEveryField)
{
    int clientData = 0;
    UIKit::DataAdapterDataEvent event(DataAdapterEvent::EVT_DATA_UPDATE, 42, 7);
    event.SetInt(3);
    event.SetExtraLong(-9);
    event.SetString("name");
    event.SetClientData(&clientData);

    std::vector<std::unique_ptr<UIKit::DataAdapterDataEvent>> received;
    wxEvtHandler first, second;
    for (wxEvtHandler* handler : {&first, &second})
        handler->Bind(wxEventTypeTag<wxCommandEvent>(DataAdapterEvent::EVT_DATA_UPDATE), [&](wxCommandEvent& e) {
            auto* row = dynamic_cast<UIKit::DataAdapterDataEvent*>(&e);
            ASSERT_NE(row, nullptr) << "the copy lost its class";
            received.emplace_back(static_cast<UIKit::DataAdapterDataEvent*>(row->Clone()));
        });
    UIKit::EventDispatcher dispatcher;
    dispatcher.AddListener(&first);
    dispatcher.AddListener(&second);
    dispatcher.DispatchEvent(event);
    event.SetRow(99);
    EXPECT_TRUE(received.empty()) << "nothing is delivered synchronously";
    wxTheApp->ProcessPendingEvents();

    ASSERT_EQ(received.size(), 2u);
    for (const auto& copy : received) {
        EXPECT_EQ(copy->GetEventType(), DataAdapterEvent::EVT_DATA_UPDATE);
        EXPECT_EQ(copy->GetId(), 42);
        EXPECT_EQ(copy->GetRow(), 7u);
        EXPECT_EQ(copy->GetInt(), 3);
        EXPECT_EQ(copy->GetExtraLong(), -9);
        EXPECT_EQ(copy->GetString(), "name");
        EXPECT_EQ(copy->GetClientData(), &clientData);
    }
    EXPECT_NE(received[0].get(), received[1].get());
}

// A window that listens to a delegate, as lists do, and leaves it when it
// is destroyed.
class ListeningWindow : public wxWindow {
public:
    ListeningWindow(wxWindow* parent, UIKit::EventDispatcher& dispatcher, int& received)
        : wxWindow(parent, wxID_ANY), m_dispatcher(dispatcher)
    {
        Bind(wxEventTypeTag<wxCommandEvent>(DataAdapterEvent::EVT_DATA_ADD), [&received](wxCommandEvent&) { ++received; });
        m_dispatcher.AddListener(this);
    }
    ~ListeningWindow() override { m_dispatcher.RemoveListener(this); }

private:
    UIKit::EventDispatcher& m_dispatcher;
};

TEST(EventDispatcher, WindowDestroyedWithEventsQueuedReceivesNothing)
{
    UIKit::EventDispatcher dispatcher;
    auto* frame = new wxFrame(nullptr, wxID_ANY, "lists");
    int kept = 0, gone = 0;
    new ListeningWindow(frame, dispatcher, kept);
    auto* leaving = new ListeningWindow(frame, dispatcher, gone);
    UIKit::DataAdapterDataEvent event(DataAdapterEvent::EVT_DATA_ADD, 0, 1);
    dispatcher.DispatchEvent(event);
    delete leaving;
    dispatcher.DispatchEvent(event);
    wxTheApp->ProcessPendingEvents();
    EXPECT_EQ(kept, 2);
    EXPECT_EQ(gone, 0);
    EXPECT_EQ(dispatcher.GetListenerCount(), 1u);
    // The listeners go before the dispatcher they leave.
    frame->DestroyChildren();
    frame->Destroy();
}

} // namespace liststest

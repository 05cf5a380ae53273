// The defaults of data sources and delegates: selection bookkeeping, the row
// template, multi-selection, and the pending-changes report to the dashboard;
// the row events their dispatchers copy to every listener.
#include "../descriptors/DescriptorTestSupport.h"
#include "../frames/TestDashboard.h"
#include "TestSupport.h"
#include "app/App.h"
#include "lists/DataAdapterDataEvent.h"
#include "lists/DataAdapterEvent.h"
#include "lists/EventDispatcher.h"
#include "lists/ListCtrlDataSource.h"
#include "lists/ListCtrlDelegate.h"

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/frame.h>

#include <memory>
#include <string>
#include <vector>

namespace liststest {

// Steps: 's' selects, 'd' deselects the digit that follows; 'c' clears.
TEST(IDataSource, SelectionKeepsOrderWithoutDuplicates)
{
    struct Case { const char* steps; std::vector<unsigned int> rows; };
    const Case cases[] = {{"s3s3", {3}}, {"s5s1s3", {5, 1, 3}}, {"s1d2", {1}}, {"s1s2d1s1", {2, 1}}, {"s1s2c", {}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.steps);
        UIKit::ListCtrlDataSource source(L"");
        for (const char* step = c.steps; *step; ++step) {
            if (*step == 'c') {
                source.doDeselectedAll();
                continue;
            }
            const unsigned int row = step[1] - '0';
            *step == 's' ? source.doSelectedIndex(row) : source.doDeselectedIndex(row);
            ++step;
        }
        EXPECT_EQ(source.GetSelectedRows(), c.rows);
        EXPECT_EQ(source.getSelectedRowCount(), c.rows.size());
    }
}

class RowTemplate : public descriptortest::FactoryFixture {};

TEST_F(RowTemplate, FoundByNameOrNull)
{
    const descriptortest::Document row(R"(<Control class="Row" name="row"/>)");
    UIKit::TemplateManager::Instance()->Add(row.Make<UIKit::BaseCtrlDescriptor>());
    testsupport::LogCapture log;
    EXPECT_FALSE(UIKit::ListCtrlDataSource(L"Row").GetItemTemplate().IsNull());
    EXPECT_TRUE(UIKit::ListCtrlDataSource(L"Missing").GetItemTemplate().IsNull());
    EXPECT_TRUE(log.Contains(L"Missing"));

    UIKit::TemplateManager::ReleaseInstance();
    EXPECT_TRUE(UIKit::ListCtrlDataSource(L"Row").GetItemTemplate().IsNull()) << "no registry, no template";
}

// Steps: 'b' begins, 'c' cancels, 'a' applies multi-selection.
TEST(ListCtrlDelegate, MultiSelection)
{
    const std::pair<const char*, bool> cases[] = {{"b", true}, {"ba", false}, {"bc", false}, {"cab", true}};
    for (const auto& [steps, multi] : cases) {
        UIKit::ListCtrlDelegate delegate;
        for (const char* step = steps; *step; ++step)
            *step == 'b' ? delegate.beginMultiSelection()
                         : *step == 'a' ? delegate.applyMultiSelection() : delegate.cancelMultiSelection();
        EXPECT_EQ(delegate.shouldDoMultiSelection(), multi) << steps;
    }
}

class RecordingDashboard : public frametest::TestDashboard {
public:
    void OnPendingChanges(const TString<wchar_t>& key, int32_t value) override
    {
        reports.push_back(std::to_wstring(value) + L":" + key);
    }
    std::vector<std::wstring> reports;
};

TEST(IDelegate, FlushAndRollbackReportPendingChangesToTheDashboard)
{
    UIKit::IDelegate delegate;
    delegate.m_pendingKey = L"profiles";
    delegate.m_pendingValue = 12;
    {
        testsupport::LogCapture log;
        delegate.doFlush();
        EXPECT_EQ(log.Size(), 1u) << "without a dashboard the report is logged, not lost silently";
    }
    auto* dashboard = new RecordingDashboard;
    UIKit::App::m_pDashboard = dashboard;
    delegate.doFlush();
    delegate.m_pendingValue = -1;
    delegate.doRollback();
    UIKit::App::m_pDashboard = nullptr;
    EXPECT_EQ(dashboard->reports, (std::vector<std::wstring>{L"12:profiles", L"-1:profiles"}));
    dashboard->Destroy();
}


using UIKit::DataAdapterEvent;

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

    std::vector<std::string> received;
    wxEvtHandler first, second;
    for (wxEvtHandler* handler : {&first, &second})
        handler->Bind(wxEventTypeTag<wxCommandEvent>(DataAdapterEvent::EVT_DATA_UPDATE), [&](wxCommandEvent& e) {
            auto* row = dynamic_cast<UIKit::DataAdapterDataEvent*>(&e);
            ASSERT_NE(row, nullptr) << "the copy lost its class";
            std::unique_ptr<UIKit::DataAdapterDataEvent> copy(static_cast<UIKit::DataAdapterDataEvent*>(row->Clone()));
            received.push_back(std::to_string(copy->GetEventType() == DataAdapterEvent::EVT_DATA_UPDATE) + " " +
                               std::to_string(copy->GetId()) + " " + std::to_string(copy->GetRow()) + " " +
                               std::to_string(copy->GetInt()) + " " + std::to_string(copy->GetExtraLong()) + " " +
                               copy->GetString().ToStdString() + " " + std::to_string(copy->GetClientData() == &clientData));
        });
    UIKit::EventDispatcher dispatcher;
    dispatcher.AddListener(&first);
    dispatcher.AddListener(&second);
    dispatcher.DispatchEvent(event);
    event.SetRow(99);
    EXPECT_TRUE(received.empty()) << "nothing is delivered synchronously";
    wxTheApp->ProcessPendingEvents();
    EXPECT_EQ(received, std::vector<std::string>(2, "1 42 7 3 -9 name 1"));
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
    EXPECT_EQ(std::to_string(kept) + " " + std::to_string(gone) + " " + std::to_string(dispatcher.GetListenerCount()), "2 0 1");
    // The listeners go before the dispatcher they leave.
    frame->DestroyChildren();
    frame->Destroy();
}

} // namespace liststest

// The defaults of data sources and delegates: selection bookkeeping, the row
// template, multi-selection, and the pending-changes report to the dashboard.
// (Row events reach lists through the listener list: its own tests and the
// list's row-event test cover their delivery and copies.)
#include "../descriptors/DescriptorTestSupport.h"
#include "../frames/TestDashboard.h"
#include "TestSupport.h"
#include "app/App.h"
#include "lists/ListCtrlDataSource.h"
#include "lists/ListCtrlDelegate.h"

#include <gtest/gtest.h>

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

} // namespace liststest

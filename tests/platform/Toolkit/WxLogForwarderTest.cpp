#include "Toolkit/WxLogForwarder.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <wx/log.h>

namespace {

// A wx log target that only counts what reaches it.
class CountingLog : public wxLog {
public:
    int records = 0;

protected:
    void DoLogRecord(wxLogLevel, const wxString&, const wxLogRecordInfo&) override { ++records; }
};

TEST(WxLogForwarderTest, ForwardsWxMessagesWithTheirSeverity)
{
    CountingLog previous;
    wxLog* original = wxLog::SetActiveTarget(&previous);
    {
        testsupport::LogCapture log;
        Toolkit::WxLogForwarder forwarder;
        forwarder.Install();
        EXPECT_EQ(wxLog::GetActiveTarget(), &forwarder);

        const struct {
            void (*emit)();
            const wchar_t* text;
            int severity;
        } cases[] = {
            {[] { wxLogError("disk %s is full", "A"); }, L"disk A is full", Toolkit::LogError},
            {[] { wxLogWarning("low signal"); }, L"low signal", Toolkit::LogError},
            {[] { wxLogMessage(L"caf\u00E9 open"); }, L"caf\u00E9 open", Toolkit::LogInfo},
        };
        for (const auto& c : cases) {
            SCOPED_TRACE(testing::PrintToString(std::wstring(c.text)));
            log.Clear();
            c.emit();
            const auto entries = log.Entries();
            ASSERT_EQ(entries.size(), 1u) << log.Dump();
            EXPECT_EQ(entries[0].message, c.text);
            EXPECT_EQ(entries[0].severity, c.severity);
            EXPECT_STREQ(entries[0].file, "WxLogForwarderTest.cpp");
        }
        EXPECT_EQ(previous.records, 0) << "forwarded messages do not also reach the old target";

        forwarder.Uninstall();
        EXPECT_EQ(wxLog::GetActiveTarget(), &previous);
        wxLogError("after");
        EXPECT_EQ(previous.records, 1);

        // Replaced by someone else, the forwarder leaves the new target alone.
        forwarder.Install();
        CountingLog later;
        wxLog::SetActiveTarget(&later);
        forwarder.Uninstall();
        EXPECT_EQ(wxLog::GetActiveTarget(), &later);
        wxLog::SetActiveTarget(&previous);

        // The destructor uninstalls.
        forwarder.Install();
    }
    EXPECT_EQ(wxLog::GetActiveTarget(), &previous);
    wxLog::SetActiveTarget(original);
}

} // namespace

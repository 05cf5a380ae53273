#include "Toolkit/ILogger.h"
#include "Toolkit/UTF8.h"
#include "Toolkit/WxLogForwarder.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <wx/log.h>

namespace {

// The minimum applies before any sink sees the entry.
TEST(LoggerTest, MinimumSeverityDropsLesserEntriesAndAnUnusableFileIsNoSink)
{
    testsupport::LogCapture log;
    auto& logger = Toolkit::ILogger::Instance();
    logger.SetMinimumSeverity(Toolkit::LogError);
    TK_LOG(Toolkit::LogInfo) << "dropped";
    TK_LOG(Toolkit::LogError) << "kept";
    logger.SetMinimumSeverity(Toolkit::LogInfo);
    EXPECT_FALSE(log.Contains(L"dropped"));
    EXPECT_TRUE(log.Contains(L"kept"));

    EXPECT_FALSE(logger.AddFileSink("/proc/no/such/dir/app.log"));
    EXPECT_TRUE(log.Contains(L"cannot open log file /proc/no/such/dir/app.log"));
}

// Text from input cannot forge an entry or reach the terminal: every sink,
// the file included, gets one line per entry with controls escaped, placed
// by the base name of its source file. Narrow text is read as UTF-8.
TEST(LoggerTest, ControlCharactersInMessagesAreEscapedInEverySink)
{
    const struct {
        std::wstring input;
        std::wstring logged;
    } cases[] = {
        {L"cr\r\nE [2026-01-01] forged", L"cr\\r\\nE [2026-01-01] forged"},
        {std::wstring(L"nul\0del\x7f", 8), L"nul\\x00del\\x7f"},
        {L"c1\x85next\x9b", L"c1\\u0085next\\u009b"},
        {L"line\u2028sep\u202Eevil", L"line\\u2028sep\\u202eevil"},
        {L"caf\u00E9 \u4E2D ok", L"caf\u00E9 \u4E2D ok"},
    };
    testsupport::TempDir dir;
    const auto path = dir.Str() + "/state/app.log"; // the missing folder is made
    auto& logger = Toolkit::ILogger::Instance();
    testsupport::LogCapture log;
    auto fileSink = logger.AddFileSink(path);
    ASSERT_TRUE(fileSink);
    for (const auto& c : cases)
        TK_LOG(Toolkit::LogError) << std::string("caf\xC3\xA9 ") << c.input;
    logger.RemoveSink(fileSink);

    const auto entries = log.Entries();
    ASSERT_EQ(entries.size(), std::size(cases));
    std::ifstream in(path);
    std::string line;
    for (size_t i = 0; i < std::size(cases); ++i) {
        EXPECT_EQ(entries[i].message, L"caf\u00E9 " + cases[i].logged);
        ASSERT_TRUE(std::getline(in, line));
        EXPECT_TRUE(line.ends_with(Toolkit::UTF8::ToUTF8(L": caf\u00E9 " + cases[i].logged))) << line;
        EXPECT_STREQ(entries[i].file, "LoggerTest.cpp") << "the base name, not the build path";
    }
    EXPECT_FALSE(std::getline(in, line)) << "an entry spread over more than one line";
}

// The log file is private, stays under its cap with one previous file, and
// is never a FIFO or a symlink planted at its path.
TEST(LoggerTest, LogFileIsPrivateAndRotatedAtItsCap)
{
    testsupport::LogCapture log;
    testsupport::TempDir dir;
    const auto path = dir.Str() + "/app.log";
    const auto old = dir.Write("app.log", "older entries\n");
    ASSERT_EQ(::chmod(old.c_str(), 0644), 0);
    auto& logger = Toolkit::ILogger::Instance();
    constexpr size_t cap = 400;
    auto fileSink = logger.AddFileSink(path, cap);
    ASSERT_TRUE(fileSink);
    for (int i = 0; i < 20; ++i)
        TK_LOG(Toolkit::LogInfo) << "entry " << i << ' ' << std::string(40, 'x');
    logger.RemoveSink(fileSink);

    for (const auto& file : {path, path + ".1"}) {
        struct stat st {};
        ASSERT_EQ(::stat(file.c_str(), &st), 0) << file;
        EXPECT_EQ(st.st_mode & 0777, 0600u) << file;
        EXPECT_LE(size_t(st.st_size), cap) << file;
    }
    const std::string content = testsupport::ReadFile(path);
    EXPECT_NE(content.find("entry 19 "), std::string::npos) << "the newest entry is in the current file";
    EXPECT_FALSE(std::filesystem::exists(path + ".2"));

    ASSERT_EQ(::mkfifo((dir.Str() + "/fifo.log").c_str(), 0600), 0);
    std::filesystem::create_symlink(path, dir.Str() + "/link.log");
    EXPECT_FALSE(logger.AddFileSink(dir.Str() + "/fifo.log"));
    EXPECT_FALSE(logger.AddFileSink(dir.Str() + "/link.log"));
    EXPECT_TRUE(log.Contains(L"cannot open log file " + Toolkit::UTF8::ToUNICODE(dir.Str()) + L"/fifo.log: "))
        << log.Dump();
    EXPECT_TRUE(log.Contains(L"link.log: Too many levels of symbolic links")) << log.Dump();
}

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
        }
        EXPECT_EQ(previous.records, 0) << "forwarded messages do not also reach the old target";

        forwarder.Uninstall();
        EXPECT_EQ(wxLog::GetActiveTarget(), &previous);
    }
    wxLog::SetActiveTarget(original);
}

} // namespace

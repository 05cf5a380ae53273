#include "Toolkit/ILogger.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

TEST(LoggerTest, EntryCarriesSeverityPlaceAndMessage)
{
    testsupport::LogCapture log;
    TK_LOG(Toolkit::LogError) << "cannot open " << std::string("caf\xC3\xA9") << " (" << 42 << ")";
    const auto entries = log.Entries();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].severity, Toolkit::LogError);
    EXPECT_EQ(entries[0].message, L"cannot open caf\u00E9 (42)");
    EXPECT_STREQ(entries[0].function, "TestBody");
    EXPECT_STREQ(entries[0].file, "LoggerTest.cpp");
    const auto line = Toolkit::ILogger::Format(entries[0]);
    EXPECT_NE(line.find(Toolkit::ILogger::c_strLogToken1), std::wstring::npos);
    EXPECT_NE(line.find(L"LoggerTest.cpp:"), std::wstring::npos);
}

TEST(LoggerTest, MinimumSeverityDropsLesserEntriesAndFileSinkAppends)
{
    testsupport::LogCapture log;
    testsupport::TempDir dir;
    const auto path = dir.Str() + "/state/app.log";
    auto& logger = Toolkit::ILogger::Instance();
    auto fileSink = logger.AddFileSink(path);
    ASSERT_TRUE(fileSink);
    logger.SetMinimumSeverity(Toolkit::LogError);
    TK_LOG(Toolkit::LogInfo) << "dropped";
    TK_LOG(Toolkit::LogInfo) << Toolkit::SetSeverity(Toolkit::LogError) << "kept";
    logger.SetMinimumSeverity(Toolkit::LogInfo);
    logger.RemoveSink(fileSink);
    EXPECT_FALSE(log.Contains(L"dropped"));
    EXPECT_TRUE(log.Contains(L"kept"));
    std::ifstream in(path);
    std::string content((std::istreambuf_iterator<char>(in)), {});
    EXPECT_NE(content.find("kept"), std::string::npos);
    EXPECT_EQ(content.find("dropped"), std::string::npos);

    EXPECT_FALSE(logger.AddFileSink("/proc/no/such/dir/app.log"));
    EXPECT_TRUE(log.Contains(L"cannot open log file /proc/no/such/dir/app.log"));
}

} // namespace

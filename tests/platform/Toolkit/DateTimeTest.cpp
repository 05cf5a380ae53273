#include "Toolkit/DateTime.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <ctime>

namespace {

using Toolkit::DateTime;

// The month picker steps by one month, the history takes the seconds of a
// session off the time it ended.
TEST(DateTimeTest, MonthAndSecondArithmeticClampsAtTheEnds)
{
    const struct {
        DateTime start;
        bool add;
        unsigned months, seconds;
        DateTime expected;
    } cases[] = {
        {{2023, 3, 31}, false, 1, 0, {2023, 2, 28}},
        {{2023, 12, 31}, true, 2, 0, {2024, 2, 29}},
        {{2010, 1, 1}, false, 0, 1, {2009, 12, 31, 23, 59, 59}},
        {{9999, 11, 15}, true, 3, 0, {9999, 12, 15}}, // saturates at the last month
        {{9999, 12, 31, 23, 0, 0}, true, 0, 7200, {9999, 12, 31, 23, 59, 59}},
        {{1, 2, 1}, false, 3, 0, {1, 1, 1}},
    };
    for (const auto& c : cases) {
        DateTime d = c.start;
        c.add ? d.Add(0, c.months, 0, c.seconds) : d.Remove(0, c.months, 0, c.seconds);
        EXPECT_EQ(std::wstring(d.Format()), std::wstring(c.expected.Format()))
            << std::wstring(c.start.Format()) << (c.add ? " + " : " - ") << c.months << "m " << c.seconds << "s";
    }
}

TEST(DateTimeTest, OutOfRangeFieldsAreClampedAndLogged)
{
    testsupport::LogCapture log;
    const struct {
        int y, mo, d, h, mi, s;
        const wchar_t* expected;
    } cases[] = {
        {2009, 2, 30, 0, 0, 0, L"2009-02-28 00:00:00"},
        {12000, 13, 0, 24, 60, 61, L"9999-12-01 23:59:59"},
        {0, 0, 1, -1, -1, -1, L"0001-01-01 00:00:00"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(DateTime(c.y, c.mo, c.d, c.h, c.mi, c.s).Format(), c.expected);
    EXPECT_EQ(log.Count(L"clamped into range"), 3u) << log.Dump();
}

TEST(DateTimeTest, DefaultIsNowInLocalTime)
{
    auto local = [] {
        const std::time_t t = std::time(nullptr);
        std::tm tm{};
        localtime_r(&t, &tm);
        return DateTime(tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, std::min(tm.tm_sec, 59));
    };
    const DateTime before = local();
    const DateTime now;
    const DateTime after = local();
    EXPECT_LE(before, now);
    EXPECT_LE(now, after);
}

} // namespace

#include "Toolkit/DateTime.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <ctime>

namespace {

using Toolkit::DateTime;

TEST(DateTimeTest, MonthArithmeticClampsTheDayAndCrossesYears)
{
    const struct {
        DateTime start;
        bool add;
        unsigned years, months, days, seconds;
        DateTime expected;
    } cases[] = {
        {{2023, 3, 31}, false, 0, 1, 0, 0, {2023, 2, 28}},
        {{2023, 12, 31}, true, 0, 2, 0, 0, {2024, 2, 29}},
        {{2009, 1, 31}, false, 1, 13, 0, 0, {2006, 12, 31}},
        {{2024, 1, 31}, true, 0, 1, 1, 0, {2024, 3, 1}}, // months first, then days
        {{2010, 1, 1}, false, 0, 0, 1, 1, {2009, 12, 30, 23, 59, 59}},
        {{9999, 11, 15}, true, 0, 3, 0, 0, {9999, 12, 15}},              // saturates at the last month
        {{9999, 12, 31, 23, 0, 0}, true, 0, 0, 5, 0, {9999, 12, 31, 23, 59, 59}},
        {{1, 2, 1}, false, 0, 3, 0, 0, {1, 1, 1}},
        {{2009, 1, 1}, true, 4000000000u, 0, 0, 0, {9999, 12, 1}}, // the month saturates, the day stays
    };
    for (const auto& c : cases) {
        DateTime d = c.start;
        if (c.add)
            d.Add(c.years, c.months, c.days, c.seconds);
        else
            d.Remove(c.years, c.months, c.days, c.seconds);
        EXPECT_EQ(std::wstring(d.Format()), std::wstring(c.expected.Format()))
            << std::wstring(c.start.Format()) << (c.add ? " + " : " - ") << c.years << "y " << c.months << "m " << c.days << "d "
            << c.seconds << "s";
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

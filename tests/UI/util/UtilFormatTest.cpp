#include "util/Util.h"

#include <gtest/gtest.h>

// Without an appearance the labels read as their keys, which keeps the
// expected texts readable; the decimal separator is the C locale's ".".
namespace {

using UIKit::Util;

TEST(UtilFormatTest, VolumesAndSpeedsPickTheirUnitAndRounding)
{
    struct Case {
        uint64_t bytes;
        const wchar_t* volume;
        const wchar_t* speed;
    };
    const Case cases[] = {
        {1023, L"1023 LB_VOLUME_B", L"1023 LB_SPEED_B"},
        {1024, L"1 LB_VOLUME_KB", L"1 LB_SPEED_KB"},
        {1536, L"2 LB_VOLUME_KB", L"1 LB_SPEED_KB"}, // volume rounds, speed truncates
        {819199, L"800 LB_VOLUME_KB", L"799 LB_SPEED_KB"},
        {819200, L"0.78 LB_VOLUME_MB", L"0.78 LB_SPEED_MB"},
        {838860799, L"799.99 LB_VOLUME_MB", L"799.99 LB_SPEED_MB"},
        {838860800, L"0.78 LB_VOLUME_GB", L"0.78 LB_SPEED_GB"},
    };
    for (const auto& c : cases) {
        TString<wchar_t> volume;
        TString<wchar_t> speed;
        Util::FormatDataVolume(volume, c.bytes);
        Util::FormatDataSpeed(speed, c.bytes);
        EXPECT_EQ(volume, c.volume) << c.bytes;
        EXPECT_EQ(speed, c.speed) << c.bytes;
    }
}

TEST(UtilFormatTest, DurationsAndPhoneNumbers)
{
    const std::pair<uint64_t, const wchar_t*> durations[] = {
        {999, L"00:00:00"},
        {3723000, L"01:02:03"},
        {(123ull * 3600 + 4 * 60 + 5) * 1000, L"123:04:05"},
    };
    for (const auto& [ms, text] : durations) {
        TString<wchar_t> out;
        Util::FormatDuration(out, ms);
        EXPECT_EQ(out, text) << ms;
    }
    const std::pair<const wchar_t*, const wchar_t*> numbers[] = {
        {L"123456789", L"123456789"},
        {L"0123456789", L"012-345-6789"},
        {L"+x0123456789", L"+x-012-345-6789"},
    };
    for (const auto& [number, text] : numbers) {
        TString<wchar_t> out;
        Util::FormatMsisdn(out, number);
        EXPECT_EQ(out, text) << number;
    }
}

} // namespace

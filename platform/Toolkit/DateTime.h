#pragma once
// A local wall-clock date and time to the second, from year 1 to 9999.
// Built on std::chrono's civil calendar and kept free of any time zone, so
// that adding a day never lands an hour off across a daylight-saving change.
//
// Add and Remove take (years, months, days, seconds). Years and months move
// the calendar month and keep the day, clamped to the length of the month
// reached (31 January + 1 month = 28 or 29 February); days and seconds are
// then applied as elapsed time. Results saturate at the ends of the range.
#include "Toolkit/TString.h"

#include <chrono>
#include <compare>

namespace Toolkit {

class DateTime {
public:
    // Now, in local time.
    DateTime();
    // Out-of-range fields are clamped into their range (and logged); the
    // day is clamped to the length of its month.
    DateTime(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

    int GetYear() const;
    int GetMonth() const; // 1 to 12
    int GetDay() const;   // 1 to 31
    int GetHour() const;
    int GetMinute() const;
    int GetSecond() const;
    int GetDayOfWeek() const; // 0 Sunday to 6 Saturday
    static int GetDaysInMonth(int year, int month);

    DateTime& Add(unsigned years, unsigned months, unsigned days, unsigned seconds);
    DateTime& Remove(unsigned years, unsigned months, unsigned days, unsigned seconds);

    // "2009-04-15 08:30:00".
    TString<wchar_t> Format() const;

    bool operator==(const DateTime& other) const = default;
    auto operator<=>(const DateTime& other) const = default;

private:
    std::chrono::year_month_day date() const;
    std::chrono::hh_mm_ss<std::chrono::seconds> time() const;
    void shift(long long sign, unsigned years, unsigned months, unsigned days, unsigned seconds);

    std::chrono::local_seconds m_time;
};

} // namespace Toolkit

#include "Toolkit/DateTime.h"

#include "Toolkit/ILogger.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace Toolkit {

using namespace std::chrono;

namespace {

constexpr int c_firstYear = 1;
constexpr int c_lastYear = 9999;

local_seconds earliest() { return local_days{year(c_firstYear) / January / 1}; }
local_seconds latest() { return local_days{year(c_lastYear) / December / 31} + hours(23) + minutes(59) + seconds(59); }

} // namespace

DateTime::DateTime()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    // tm_sec can be 60 on a leap second; the constructor clamps it.
    *this = DateTime(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                     std::min(local.tm_sec, 59));
}

DateTime::DateTime(int y, int mo, int d, int h, int mi, int s)
{
    const int cy = std::clamp(y, c_firstYear, c_lastYear);
    const int cmo = std::clamp(mo, 1, 12);
    const int cd = std::clamp(d, 1, GetDaysInMonth(cy, cmo));
    const int ch = std::clamp(h, 0, 23);
    const int cmi = std::clamp(mi, 0, 59);
    const int cs = std::clamp(s, 0, 59);
    if (cy != y || cmo != mo || cd != d || ch != h || cmi != mi || cs != s)
        TK_LOG(LogError) << "invalid date " << y << '-' << mo << '-' << d << ' ' << h << ':' << mi << ':' << s
                         << " clamped into range";
    m_time = local_days{year(cy) / month(unsigned(cmo)) / day(unsigned(cd))} + hours(ch) + minutes(cmi) + seconds(cs);
}

year_month_day DateTime::date() const { return year_month_day{floor<days>(m_time)}; }

hh_mm_ss<seconds> DateTime::time() const { return hh_mm_ss<seconds>{m_time - floor<days>(m_time)}; }

int DateTime::GetYear() const { return int(date().year()); }
int DateTime::GetMonth() const { return int(unsigned(date().month())); }
int DateTime::GetDay() const { return int(unsigned(date().day())); }
int DateTime::GetHour() const { return int(time().hours().count()); }
int DateTime::GetMinute() const { return int(time().minutes().count()); }
int DateTime::GetSecond() const { return int(time().seconds().count()); }
int DateTime::GetDayOfWeek() const { return int(weekday{floor<days>(m_time)}.c_encoding()); }

int DateTime::GetDaysInMonth(int y, int mo)
{
    return int(unsigned((year(y) / month(unsigned(std::clamp(mo, 1, 12))) / last).day()));
}

DateTime& DateTime::Add(unsigned years, unsigned months, unsigned days, unsigned seconds)
{
    shift(1, years, months, days, seconds);
    return *this;
}

DateTime& DateTime::Remove(unsigned years, unsigned months, unsigned days, unsigned seconds)
{
    shift(-1, years, months, days, seconds);
    return *this;
}

void DateTime::shift(long long sign, unsigned years, unsigned months, unsigned dayCount, unsigned secondCount)
{
    const auto ymd = date();
    const auto timeOfDay = m_time - floor<std::chrono::days>(m_time);
    // Months counted from January of year 1, so the month arithmetic is plain integers.
    long long monthIndex = (int(ymd.year()) - 1) * 12LL + (unsigned(ymd.month()) - 1) +
                           sign * (static_cast<long long>(years) * 12 + months);
    monthIndex = std::clamp(monthIndex, 0LL, c_lastYear * 12LL - 1);
    const year y(int(monthIndex / 12) + 1);
    const month m(unsigned(monthIndex % 12) + 1);
    const day d = std::min(ymd.day(), (y / m / last).day());
    const local_seconds moved = local_days{y / m / d} + timeOfDay;

    const long long offset = sign * (static_cast<long long>(dayCount) * 86400 + secondCount);
    const long long target = std::clamp<long long>(moved.time_since_epoch().count() + offset,
                                        earliest().time_since_epoch().count(), latest().time_since_epoch().count());
    m_time = local_seconds{std::chrono::seconds(target)};
}

TString<wchar_t> DateTime::Format() const
{
    wchar_t text[32];
    std::swprintf(text, 32, L"%04d-%02d-%02d %02d:%02d:%02d", GetYear(), GetMonth(), GetDay(), GetHour(), GetMinute(),
                  GetSecond());
    return text;
}

} // namespace Toolkit

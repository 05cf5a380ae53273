// Util: display formatting of volumes, speeds, durations and phone numbers.
#include "util/Util.h"

#include "Toolkit/Locales.h"
#include "Toolkit/UTF8.h"
#include "appearance/Appearance.h"

#include <array>
#include <cwchar>

namespace UIKit {
namespace {

TString<wchar_t> label(const char* key)
{
    auto appearance = Appearance::Instance();
    return appearance ? appearance->GetStr(TString<char>(key)) : TString<wchar_t>(Toolkit::UTF8::ToUNICODE(key));
}

// "<whole><separator><two-digit hundredths> <label>", the hundredths being
// the remainder's share of 1024 truncated.
TString<wchar_t> withHundredths(uint64_t units, const char* key)
{
    wchar_t digits[8];
    std::swprintf(digits, 8, L"%02u", unsigned(((units % 1024) * 100) / 1024));
    return std::to_wstring(units / 1024) + Toolkit::Locales::GetDecimalSeparator() + digits + L" " + label(key);
}

void formatAmount(TString<wchar_t>& out, uint64_t bytes, const std::array<const char*, 4>& keys, bool roundKilobytes)
{
    if (bytes < 1024)
        out = std::to_wstring(bytes) + L" " + label(keys[0]);
    else if (bytes < 819200)
        out = std::to_wstring(roundKilobytes ? (bytes + 512) / 1024 : bytes / 1024) + L" " + label(keys[1]);
    else if (bytes < 838860800)
        out = withHundredths(bytes / 1024, keys[2]);
    else
        out = withHundredths(bytes / 1048576, keys[3]);
}

} // namespace

void Util::FormatDataVolume(TString<wchar_t>& out, uint64_t bytes)
{
    formatAmount(out, bytes, {"LB_VOLUME_B", "LB_VOLUME_KB", "LB_VOLUME_MB", "LB_VOLUME_GB"}, true);
}

void Util::FormatDataSpeed(TString<wchar_t>& out, uint64_t bytesPerSecond)
{
    formatAmount(out, bytesPerSecond, {"LB_SPEED_B", "LB_SPEED_KB", "LB_SPEED_MB", "LB_SPEED_GB"}, false);
}

void Util::FormatDuration(TString<wchar_t>& out, uint64_t milliseconds)
{
    const uint64_t s = milliseconds / 1000;
    wchar_t buffer[48];
    std::swprintf(buffer, 48, L"%02llu:%02u:%02u", (unsigned long long)(s / 3600), unsigned((s % 3600) / 60),
                  unsigned(s % 60));
    out = buffer;
}

void Util::FormatMsisdn(TString<wchar_t>& out, const TString<wchar_t>& number)
{
    const size_t n = number.size();
    if (n < 10) {
        out = number;
        return;
    }
    const auto last = number.substr(n - 10);
    out.clear();
    if (n > 10)
        out = number.substr(0, n - 10) + L"-";
    out += last.substr(0, 3) + L"-" + last.substr(3, 3) + L"-" + last.substr(6);
}

} // namespace UIKit

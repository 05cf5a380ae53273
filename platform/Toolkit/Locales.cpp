#include "Toolkit/Locales.h"

#include <clocale>
#include <cstring>
#include <cwchar>
#include <mutex>

namespace Toolkit {
namespace {

// localeconv shares one static buffer per process, so reads are serialised.
std::mutex& localeLock()
{
    static std::mutex lock;
    return lock;
}

// The separator is in the locale's own multibyte encoding.
TString<wchar_t> fromLocale(const char* text)
{
    TString<wchar_t> out;
    std::mbstate_t state{};
    const size_t length = std::strlen(text);
    for (size_t i = 0; i < length;) {
        wchar_t c = 0;
        const size_t n = std::mbrtowc(&c, text + i, length - i, &state);
        if (n == 0 || n > length - i)
            break;
        out.push_back(c);
        i += n;
    }
    return out;
}

} // namespace

TString<wchar_t> Locales::GetDecimalSeparator()
{
    std::lock_guard lock(localeLock());
    const auto separator = fromLocale(std::localeconv()->decimal_point);
    return separator.empty() ? TString<wchar_t>(L".") : separator;
}

TString<wchar_t> Locales::GetThousandsSeparator()
{
    std::lock_guard lock(localeLock());
    return fromLocale(std::localeconv()->thousands_sep);
}

} // namespace Toolkit

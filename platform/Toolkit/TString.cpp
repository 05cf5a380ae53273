#include "Toolkit/TString.h"

#include <locale>

namespace Toolkit::detail {
namespace {

const std::ctype<wchar_t>& unicodeCtype()
{
    // C.UTF-8 is built into the C library, so it exists on every machine;
    // fall back to the classic locale if it does not.
    static const std::locale locale = [] {
        try {
            return std::locale("C.UTF-8");
        } catch (const std::exception&) {
            return std::locale::classic();
        }
    }();
    return std::use_facet<std::ctype<wchar_t>>(locale);
}

} // namespace

wchar_t wideToLower(wchar_t c) { return unicodeCtype().tolower(c); }
wchar_t wideToUpper(wchar_t c) { return unicodeCtype().toupper(c); }

} // namespace Toolkit::detail

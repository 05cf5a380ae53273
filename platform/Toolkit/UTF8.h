#pragma once
// Conversions between UTF-8 bytes and wide strings. Invalid input never
// fails: each malformed sequence becomes U+FFFD.
#include "Toolkit/TString.h"

namespace Toolkit::UTF8 {

TString<wchar_t> ToUNICODE(std::string_view utf8);
TString<char> ToUTF8(std::wstring_view wide);

} // namespace Toolkit::UTF8

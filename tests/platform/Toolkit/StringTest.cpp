#include "Toolkit/TString.h"
#include "Toolkit/UTF8.h"

#include <gtest/gtest.h>

namespace {

TEST(StringTest, CaseInsensitiveCompareAndSearch)
{
    const TString<wchar_t> s = L"Hello World";
    EXPECT_EQ(s.compareNoCase(L"hello world"), 0);
    EXPECT_LT(s.compareNoCase(L"hello worlds"), 0);
    EXPECT_TRUE(TString<wchar_t>(L"\u00C9T\u00C9").equalsNoCase(L"\u00E9t\u00E9"));
    EXPECT_TRUE(s.HasSubstring(L"o W"));
    EXPECT_FALSE(s.HasSubstring(L"o w"));
    EXPECT_EQ(TString<char>("  a b \r\n").Trim(), "a b");
    EXPECT_EQ(TString<char>("1,2;;3").Split(",;"), (std::vector<TString<char>>{"1", "2", "", "3"}));
}

TEST(StringTest, Utf8RoundTripsAndReplacesInvalidBytes)
{
    const std::wstring wide = L"a\u00E9\u20AC\U0001F600";
    EXPECT_EQ(Toolkit::UTF8::ToUNICODE(Toolkit::UTF8::ToUTF8(wide)), wide);

    struct Case {
        const char* bytes;
        std::wstring expected;
    };
    const Case cases[] = {
        {"\xFF", L"\uFFFD"},                  // never a lead byte
        {"a\xC3", L"a\uFFFD"},                // truncated at the end
        {"\xC0\xAF", L"\uFFFD"},              // overlong '/'
        {"\xED\xA0\x80", L"\uFFFD"},          // surrogate
        {"\xF4\x90\x80\x80", L"\uFFFD"},      // beyond U+10FFFF
        {"\x80x", L"\uFFFDx"},                // stray continuation
    };
    for (const auto& c : cases)
        EXPECT_EQ(Toolkit::UTF8::ToUNICODE(c.bytes), c.expected) << c.bytes;
}

} // namespace

// Text handling: UTF-8 conversion and the regular expressions.
#include "Toolkit/RegExp.h"
#include "Toolkit/UTF8.h"

#include <gtest/gtest.h>

namespace {

using Toolkit::RegExp;
using Toolkit::RegExpException;

// The number box's pattern, the one use of regular expressions: IsMatch
// takes the whole text, and \d is ASCII only.
TEST(RegExpTest, IsMatchTestsTheWholeText)
{
    const RegExp number("-?[\\d]+", 0);
    const struct {
        const wchar_t* text;
        bool whole, found;
    } cases[] = {{L"-12", true, true}, {L"12a", false, true}, {L"\u0661\u0662", false, false}};
    for (const auto& c : cases) {
        EXPECT_EQ(number.IsMatch(TString<wchar_t>(c.text)), c.whole) << testing::PrintToString(std::wstring(c.text));
        EXPECT_EQ(number.Match(TString<wchar_t>(c.text)).Success(), c.found)
            << testing::PrintToString(std::wstring(c.text));
    }
    // An alternation must not be satisfied by its first branch alone.
    EXPECT_TRUE(RegExp("a|ab", 0).IsMatch(TString<char>("ab")));
}

TEST(RegExpTest, FailuresThrowWithPcre2Message)
{
    try {
        RegExp bad("(unclosed", 0);
        ADD_FAILURE() << "compiled";
    } catch (const RegExpException& e) {
        EXPECT_NE(e.GetMessage().find("missing closing parenthesis"), std::string::npos) << e.what();
        EXPECT_GE(e.GetOffset(), 0);
    }
    // Catastrophic backtracking stops at the match limit instead of hanging.
    EXPECT_THROW(RegExp("(a+)+$", 0).Match(TString<char>(std::string(40, 'a') + "!")), RegExpException);
}

TEST(Utf8Test, Utf8RoundTripsAndReplacesInvalidBytes)
{
    const std::wstring wide = L"a\u00E9\u20AC\U0001F600";
    EXPECT_EQ(Toolkit::UTF8::ToUNICODE(Toolkit::UTF8::ToUTF8(wide)), wide);

    const struct {
        const char* bytes;
        std::wstring expected;
    } cases[] = {
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

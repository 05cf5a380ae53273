#include "Toolkit/RegExp.h"

#include <gtest/gtest.h>

namespace {

using Toolkit::RegExp;
using Toolkit::RegExpException;

// A definition-like pattern: numbered groups, a greedy quote, UTF-8 text.
const char* const c_definition = "([A-Za-z0-9_]*)[ \\t\\r\\n\\v\\f]*\"(.*)\"";

TEST(RegExpTest, MatchGivesNumberedGroupsAsUtf8AndUnsetOnesAsAbsent)
{
    const RegExp definition(c_definition, 0);
    EXPECT_EQ(definition.GetGroupCount(), 2u);
    struct Case {
        std::wstring line;
        bool success;
        std::string key;
        std::string text;
    };
    const Case cases[] = {
        {L"LB_OK \"OK\"", true, "LB_OK", "OK"},
        {L"LB_FR \"\u00E9t\u00E9 \u4E2D\"", true, "LB_FR", "\xC3\xA9t\xC3\xA9 \xE4\xB8\xAD"},
        {L"BEGIN", false, "", ""},
    };
    for (const auto& c : cases) {
        const auto m = definition.Match(c.line);
        EXPECT_EQ(m.Success(), c.success) << testing::PrintToString(c.line);
        EXPECT_EQ(m.Group(1), c.key) << testing::PrintToString(c.line);
        EXPECT_EQ(m.Group(2), c.text) << testing::PrintToString(c.line);
    }
    EXPECT_EQ(definition.Match(TString<char>("x KEY \"v\"")).Position(0), 2u);
    // An optional group that took no part in the match is absent, not empty.
    const auto partial = RegExp("(a)?(b)", 0).Match(TString<char>("b"));
    EXPECT_TRUE(partial.Success() && !partial.HasGroup(1) && partial.HasGroup(2));
}

TEST(RegExpTest, IsMatchTestsTheWholeText)
{
    const RegExp number("-?[\\d]+", 0);
    struct Case {
        const wchar_t* text;
        bool whole;
        bool found;
    };
    const Case cases[] = {
        {L"-12", true, true}, {L"12a", false, true}, {L"a12", false, true}, {L"\u0661\u0662", false, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(number.IsMatch(TString<wchar_t>(c.text)), c.whole) << testing::PrintToString(std::wstring(c.text));
        EXPECT_EQ(number.Match(TString<wchar_t>(c.text)).Success(), c.found) << testing::PrintToString(std::wstring(c.text));
    }
    // An alternation must not be satisfied by its first branch alone.
    EXPECT_TRUE(RegExp("a|ab", 0).IsMatch(TString<char>("ab")));

    const RegExp caseless("caf\u00C9", RegExp::IgnoreCase);
    EXPECT_TRUE(caseless.IsMatch(TString<wchar_t>(L"CAF\u00E9")));
    EXPECT_FALSE(RegExp("caf\u00C9", 0).IsMatch(TString<wchar_t>(L"caf\u00E9")));
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

    const RegExp word("\\w+", 0);
    try {
        word.Match(TString<char>("ok \xC3"));
        ADD_FAILURE() << "invalid UTF-8 text matched";
    } catch (const RegExpException& e) {
        EXPECT_NE(e.GetMessage().find("UTF-8 error"), std::string::npos) << e.what();
        EXPECT_EQ(e.GetOffset(), -1);
    }

    // Catastrophic backtracking stops at the match limit instead of hanging.
    const RegExp nested("(a+)+$", 0);
    EXPECT_THROW(nested.Match(TString<char>(std::string(40, 'a') + "!")), RegExpException);
}

} // namespace

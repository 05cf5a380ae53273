#include "Toolkit/Locales.h"

#include <gtest/gtest.h>

#include <clocale>

namespace {

TEST(LocalesTest, SeparatorsFollowTheCurrentCLocale)
{
    const std::string previous = std::setlocale(LC_NUMERIC, nullptr);
    for (const char* name : {"C", "C.UTF-8", "POSIX"}) {
        if (!std::setlocale(LC_NUMERIC, name))
            continue;
        EXPECT_EQ(Toolkit::Locales::GetDecimalSeparator(), L".") << name;
        EXPECT_EQ(Toolkit::Locales::GetThousandsSeparator(), L"") << name;
    }
    std::setlocale(LC_NUMERIC, previous.c_str());
}

} // namespace

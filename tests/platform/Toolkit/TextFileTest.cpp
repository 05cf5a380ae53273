#include "Toolkit/LineReader.h"
#include "Toolkit/TextFile.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

namespace {

using Lines = std::vector<std::wstring>;

// Every line the documented loop sees, the last one included.
Lines readAll(Toolkit::TextFile& file)
{
    Lines lines;
    for (auto line = file.GetFirstLine(); !file.Eof(); line = file.GetNextLine())
        lines.push_back(line);
    return lines;
}

TEST(TextFileTest, SplitsLinesAtEveryKindOfLineEnd)
{
    testsupport::TempDir dir;
    struct Case {
        std::string content;
        Lines expected;
    };
    const Case cases[] = {
        {"", {}},
        {"one", {L"one"}},
        {"one\r\ntwo\r\n", {L"one", L"two"}},
        {"one\r\rtwo\r", {L"one", L"", L"two"}},
        {"\n\r\nx", {L"", L"", L"x"}},
        {"\xEF\xBB\xBF" "caf\xC3\xA9\n", {L"caf\u00E9"}},                  // byte-order mark dropped
        {"a\xEF\xBB\xBF", {L"a\uFEFF"}},                                    // only at the very start
        {std::string("a\0b", 3), {std::wstring(L"a\0b", 3)}},
    };
    for (const auto& c : cases) {
        const auto path = dir.Write("t.txt", c.content);
        Toolkit::TextFile file;
        ASSERT_TRUE(file.Open(TString<char>(path.string())));
        EXPECT_EQ(readAll(file), c.expected) << testing::PrintToString(c.content);
        // A second pass starts over at the first line.
        EXPECT_EQ(readAll(file), c.expected) << testing::PrintToString(c.content);
    }
}

// The reader's buffer boundaries must not split a CR LF pair or a BOM.
TEST(TextFileTest, LineReaderIsIndependentOfChunkBoundaries)
{
    const std::string text = "\xEF\xBB\xBF" "0123456789abcd\r\nline two\rthree\r\n\r\nlast";
    const std::vector<std::string> expected{"0123456789abcd", "line two", "three", "", "last"};
    for (size_t chunk = 1; chunk <= 20; ++chunk) {
        size_t offset = 0;
        Toolkit::LineReader reader([&](char* buffer, size_t size) -> long long {
            const size_t n = std::min({size, chunk, text.size() - offset});
            text.copy(buffer, n, offset);
            offset += n;
            return static_cast<long long>(n);
        });
        std::vector<std::string> lines;
        std::string line;
        while (reader.Next(line))
            lines.push_back(line);
        EXPECT_EQ(lines, expected) << "chunk " << chunk;
        EXPECT_FALSE(reader.Failed());
    }

    int calls = 0;
    Toolkit::LineReader failing([&](char* buffer, size_t) -> long long {
        if (calls++ == 0) {
            buffer[0] = 'x';
            return 1;
        }
        return -1;
    });
    std::string line;
    EXPECT_FALSE(failing.Next(line)); // an unfinished line is not returned on an error
    EXPECT_TRUE(failing.Failed());
}

} // namespace

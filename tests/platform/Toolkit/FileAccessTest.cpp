// The file access the packs and the language files go through: whole-file
// streams, lines, directory listings.
#include "Toolkit/Directory.h"
#include "Toolkit/FSStream.h"
#include "Toolkit/LineReader.h"
#include "Toolkit/TextFile.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace {

using Toolkit::FSStream;

// The product only reads (packs, whole files); a missing file is a quiet
// probe, the pack says whether that is a problem.
TEST(FSStreamTest, ReadsWholeFilesAndProbesQuietly)
{
    testsupport::LogCapture log;
    testsupport::TempDir dir;
    FSStream in(TString<char>(dir.Write("data.bin", std::string("abc\0defXY", 9)).string()), FSStream::ModeRead);
    EXPECT_EQ(in.Length(), 9);
    char head[4] = {};
    EXPECT_EQ(in.Read(head, 3), 3);
    EXPECT_STREQ(head, "abc");
    std::vector<unsigned char> rest;
    EXPECT_TRUE(in.ReadAll(rest));
    EXPECT_EQ(std::string(rest.begin(), rest.end()), std::string("\0defXY", 6));
    FSStream missing(TString<char>(dir.Str() + "/none.xml"), FSStream::ModeRead);
    EXPECT_EQ(missing.GetError(), ENOENT);
    EXPECT_EQ(log.Size(), 0u) << log.Dump();
}

// The reader behind language files and zip entries: its buffer boundaries
// must not split a CR LF pair or a BOM.
TEST(LineReaderTest, SplitsLinesIndependentlyOfChunkBoundaries)
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

// The SDK's text file: its loop sees every line, the last one included, and
// a second pass starts over (byte-order mark dropped again).
TEST(TextFileTest, ReadsEveryLineOnEachPass)
{
    testsupport::TempDir dir;
    const std::pair<std::string, std::vector<std::wstring>> cases[] = {
        {"", {}},
        {"\xEF\xBB\xBF" "caf\xC3\xA9\ntwo", {L"caf\u00E9", L"two"}},
        {std::string("a\0b", 3), {std::wstring(L"a\0b", 3)}},
    };
    for (const auto& [content, expected] : cases) {
        Toolkit::TextFile file;
        ASSERT_TRUE(file.Open(TString<char>(dir.Write("t.txt", content).string())));
        for (int pass = 0; pass < 2; ++pass) {
            std::vector<std::wstring> lines;
            for (auto line = file.GetFirstLine(); !file.Eof(); line = file.GetNextLine())
                lines.push_back(line);
            EXPECT_EQ(lines, expected) << testing::PrintToString(content) << " pass " << pass;
        }
    }
}

using Toolkit::Directory;
using Names = std::vector<TString<wchar_t>>;

class DirectoryTest : public testing::Test {
protected:
    void SetUp() override
    {
        for (const char* file : {"b.ar", "a.ar", "B.ar", "notes.txt", ".hidden.ar", "plugin_sms.so", "x.AR"})
            m_dir.Write(file, "x");
        std::filesystem::create_directories(m_dir.Path() / "dark.ar");
        std::filesystem::create_directories(m_dir.Path() / "strings.fr");
        std::filesystem::create_directories(m_dir.Path() / "strings.zh-Hans");
        m_dir.Write("strings.fr/main.txt", "x");
    }
    testsupport::TempDir m_dir;
};

TEST_F(DirectoryTest, ListsMatchingNamesSortedByKind)
{
    Directory dir(m_dir.Str());
    ASSERT_TRUE(dir.IsOpen());
    const struct {
        const wchar_t* pattern;
        bool folders;
        Names expected;
    } cases[] = {
        {L"*.ar", false, {L"B.ar", L"a.ar", L"b.ar"}}, // code-point order, case-sensitive match, no hidden file
        {L"*.*", false, {L"B.ar", L"a.ar", L"b.ar", L"notes.txt", L"plugin_sms.so", L"x.AR"}},
        {L"strings.*", true, {L"strings.fr", L"strings.zh-Hans"}},
        {L"*.ar", true, {L"dark.ar"}},
    };
    for (const auto& c : cases) {
        Names names{L"stale"};
        EXPECT_TRUE(c.folders ? dir.GetDirectories(c.pattern, names, 0) : dir.GetFiles(c.pattern, names, 0));
        EXPECT_EQ(names, c.expected) << "pattern " << testing::PrintToString(std::wstring(c.pattern));
    }
}

// A pack's folder may be a file; the packs folder itself is checked before listing.
TEST_F(DirectoryTest, AFileIsNoDirectoryAndIsLoggedOnce)
{
    testsupport::LogCapture log;
    Names names;
    Directory file(TString<char>(m_dir.Str() + "/notes.txt"));
    EXPECT_FALSE(file.IsOpen());
    EXPECT_FALSE(file.GetFiles(L"*", names, 0));
    EXPECT_EQ(log.Count(L"notes.txt: not a directory"), 1u) << log.Dump();
}

} // namespace

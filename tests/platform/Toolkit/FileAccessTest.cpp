// The file access the packs and the language files go through: whole-file
// streams, text lines, directory listings.
#include "Toolkit/Directory.h"
#include "Toolkit/FSStream.h"
#include "Toolkit/LineReader.h"
#include "Toolkit/TextFile.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace {

using Toolkit::FSStream;

TEST(FSStreamTest, WritesAppendsAndReadsBackWholeFiles)
{
    testsupport::TempDir dir;
    const TString<char> path = dir.Str() + "/data.bin";
    const std::string first("abc\0def", 7);
    {
        FSStream out(path, FSStream::ModeWrite);
        ASSERT_TRUE(out.IsOpen());
        EXPECT_EQ(out.Write(first.data(), first.size()), 7);
    }
    {
        FSStream out(path, FSStream::ModeAppend);
        EXPECT_EQ(out.Write("XY", 2), 2);
    }
    FSStream in(path, FSStream::ModeRead);
    EXPECT_EQ(in.Length(), 9);
    char head[4] = {};
    EXPECT_EQ(in.Read(head, 3), 3);
    EXPECT_STREQ(head, "abc");
    std::vector<unsigned char> rest;
    EXPECT_TRUE(in.ReadAll(rest));
    EXPECT_EQ(std::string(rest.begin(), rest.end()), std::string("\0defXY", 6));
    EXPECT_TRUE(in.Seek(1));
    EXPECT_EQ(in.Read(head, 2), 2);
    EXPECT_EQ(std::string(head, 2), "bc");
}

TEST(FSStreamTest, MissingFilesAreQuietProbesOtherFailuresAreLogged)
{
    testsupport::LogCapture log;
    testsupport::TempDir dir;
    FSStream missing(TString<char>(dir.Str() + "/none.xml"), FSStream::ModeRead);
    EXPECT_EQ(missing.GetError(), ENOENT);
    EXPECT_EQ(log.Size(), 0u) << log.Dump();

    const TString<char> inMissingDir = dir.Str() + "/no/such/dir/out.txt";
    EXPECT_FALSE(FSStream(inMissingDir, FSStream::ModeWrite).IsOpen());
    EXPECT_FALSE(FSStream(TString<char>(dir.Str() + "/x"), 7).IsOpen());
    EXPECT_EQ(log.Size(), 2u) << log.Dump();
    EXPECT_TRUE(log.Contains(L"no/such/dir/out.txt: No such file or directory"));
    EXPECT_TRUE(log.Contains(L"unknown open mode 7"));
}

using Lines = std::vector<std::wstring>;

// Every line the documented loop sees, the last one included.
Lines readAll(Toolkit::TextFile& file)
{
    Lines lines;
    for (auto line = file.GetFirstLine(); !file.Eof(); line = file.GetNextLine())
        lines.push_back(line);
    return lines;
}

TEST(TextFileTest, ReadsEveryLineOnEachPass)
{
    testsupport::TempDir dir;
    // Line ends are the line reader's part (below); here the file's own loop.
    const struct {
        std::string content;
        Lines expected;
    } cases[] = {
        {"", {}},
        {"one\ntwo", {L"one", L"two"}},
        {"\xEF\xBB\xBF" "caf\xC3\xA9\n", {L"caf\u00E9"}}, // byte-order mark dropped on every pass
        {"a\xEF\xBB\xBF", {L"a\uFEFF"}},                   // only at the very start
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
    struct Case {
        const wchar_t* pattern;
        unsigned flags;
        bool folders;
        Names expected;
    };
    const Case cases[] = {
        {L"*.ar", 0, false, {L"B.ar", L"a.ar", L"b.ar"}}, // code-point order, case-sensitive match
        {L"*.ar", Directory::IncludeHidden, false, {L".hidden.ar", L"B.ar", L"a.ar", L"b.ar"}},
        {L"", 0, false, {L"B.ar", L"a.ar", L"b.ar", L"notes.txt", L"plugin_sms.so", L"x.AR"}},
        {L"strings.*", 0, true, {L"strings.fr", L"strings.zh-Hans"}},
        {L"*.ar", 0, true, {L"dark.ar"}},
    };
    for (const auto& c : cases) {
        Names names{L"stale"};
        EXPECT_TRUE(c.folders ? dir.GetDirectories(c.pattern, names, c.flags) : dir.GetFiles(c.pattern, names, c.flags));
        EXPECT_EQ(names, c.expected) << "pattern " << testing::PrintToString(std::wstring(c.pattern));
    }

    Names paths;
    EXPECT_TRUE(dir.GetFiles(L"a.*", paths, Directory::FullPaths));
    EXPECT_EQ(paths, Names{Toolkit::TString<wchar_t>(m_dir.Path().wstring() + L"/a.ar")});
    EXPECT_TRUE(Directory::EnumFilePaths(paths, TString<char>(m_dir.Str()), L"*.ar"));
    EXPECT_EQ(paths, (Names{L"B.ar", L"a.ar", L"b.ar", L"dark.ar"})) << "files and folders together";
}

TEST_F(DirectoryTest, UnlistableDirectoriesFailWithOneLogEntry)
{
    testsupport::LogCapture log;
    Names names{L"stale"};
    const TString<char> missing = m_dir.Str() + "/missing";
    EXPECT_FALSE(Directory::EnumFilePaths(names, missing, L"*"));
    EXPECT_TRUE(names.empty());
    EXPECT_EQ(log.Count(L"missing"), 1u) << log.Dump();

    log.Clear();
    Directory file(TString<char>(m_dir.Str() + "/notes.txt"));
    EXPECT_FALSE(file.IsOpen());
    EXPECT_FALSE(file.GetFiles(L"*", names, 0));
    EXPECT_EQ(log.Count(L"notes.txt: not a directory"), 1u) << log.Dump();
}

} // namespace

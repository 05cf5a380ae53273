#include "Toolkit/Directory.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

namespace {

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
        {L".*", 0, false, {L".hidden.ar"}},
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

#include "Toolkit/ArchiveZip.h"
#include "Toolkit/ZipInputStream.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <thread>
#include <zip.h>

namespace {

using Toolkit::ArchiveZip;
using Toolkit::ArchiveZipEntry;
using Entries = std::map<TString<wchar_t>, ArchiveZipEntry>;

std::string binaryImage()
{
    std::string bytes;
    for (int i = 0; i < 5000; ++i)
        bytes.push_back(char((i * 7) % 256));
    return bytes;
}

// Zips the given members of folder with the standard zip tool.
void zipWithTool(const std::filesystem::path& folder, const std::string& archive, const std::string& options,
                 const std::string& members)
{
    const std::string command =
        "cd '" + folder.string() + "' && zip -q -X " + options + " '" + archive + "' " + members + " >/dev/null 2>&1";
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
}

class ArchiveZipTest : public testing::Test {
protected:
    void SetUp() override
    {
        m_dir.Write("src/main.xml", "<root/>");
        m_dir.Write("src/graphics/logo.png", binaryImage());
        m_dir.Write("src/strings.fr/main.txt", "KEY \"valeur\"\n");
        m_dir.Write("src/strings.en/main.txt", "KEY \"value\"\n");
        m_pack = m_dir.Str() + "/pack.zip";
        zipWithTool(m_dir.Path() / "src", m_pack, "-r", "main.xml graphics strings.fr strings.en");
    }

    ArchiveZipEntry entry(const ArchiveZip& zip, const wchar_t* name)
    {
        Entries found;
        EXPECT_EQ(zip.EntriesList(found, name, ArchiveZip::EntryFiles), 1)
            << testing::PrintToString(std::wstring(name));
        return found.empty() ? ArchiveZipEntry() : found.begin()->second;
    }

    testsupport::TempDir m_dir;
    std::string m_pack;
};

TEST_F(ArchiveZipTest, ListsFilesAndFoldersByPattern)
{
    ArchiveZip zip;
    ASSERT_TRUE(zip.Open(TString<char>(m_pack), true));
    const struct {
        const wchar_t* pattern;
        int type;
        int result;
        std::vector<std::wstring> names;
    } cases[] = {
        {L"strings.*", 2, 1, {L"strings.en/", L"strings.fr/"}},
        {L"strings.fr*", 1, 1, {L"strings.fr/main.txt"}}, // "*" crosses "/"
        {L"main.xml", 2, 0, {}},
    };
    for (const auto& c : cases) {
        Entries found{{L"stale", ArchiveZipEntry()}};
        EXPECT_EQ(zip.EntriesList(found, c.pattern, c.type), c.result)
            << testing::PrintToString(std::wstring(c.pattern));
        std::vector<std::wstring> names;
        for (const auto& [name, e] : found)
            names.push_back(name);
        EXPECT_EQ(names, c.names) << testing::PrintToString(std::wstring(c.pattern));
    }
}

// A stream outlives its archive; seeking back reopens the entry.
TEST_F(ArchiveZipTest, StreamsOutliveTheirArchiveAndSeek)
{
    Toolkit::smart_ptr<Toolkit::ZipInputStream> logo;
    {
        ArchiveZip zip;
        ASSERT_TRUE(zip.Open(TString<char>(m_pack), true));
        logo = zip.GetZipInputStream(entry(zip, L"graphics/logo.png"));
        zip.Close();
    }
    ASSERT_TRUE(logo);
    std::vector<unsigned char> bytes;
    char head[8];
    logo->Read(head, sizeof head);
    EXPECT_EQ(logo->SeekI(0), 0);
    EXPECT_TRUE(logo->ReadAll(bytes));
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), binaryImage());
    EXPECT_EQ(logo->SeekI(4990), 4990);
    EXPECT_TRUE(logo->ReadAll(bytes));
    EXPECT_EQ(bytes.size(), 10u);
}

TEST_F(ArchiveZipTest, StreamsOfOneArchiveReadFromSeveralThreads)
{
    ArchiveZip zip;
    ASSERT_TRUE(zip.Open(TString<char>(m_pack), true));
    const auto logo = entry(zip, L"graphics/logo.png");
    const auto xml = entry(zip, L"main.xml");
    auto readMany = [&](const ArchiveZipEntry& e, size_t expected, int& good) {
        for (int i = 0; i < 40; ++i) {
            std::vector<unsigned char> bytes;
            auto stream = zip.GetZipInputStream(e);
            if (stream && stream->ReadAll(bytes) && bytes.size() == expected)
                ++good;
        }
    };
    int goodLogo = 0;
    int goodXml = 0;
    std::thread other([&] { readMany(logo, 5000, goodLogo); });
    readMany(xml, 7, goodXml);
    other.join();
    EXPECT_EQ(goodLogo, 40);
    EXPECT_EQ(goodXml, 40);
}

TEST_F(ArchiveZipTest, FilesThatAreNotArchivesFailWithOneLogEntry)
{
    testsupport::LogCapture log;
    const auto fake = m_dir.Write("fake.zip", "this is plain text, not an archive");
    ArchiveZip zip;
    EXPECT_FALSE(zip.Open(TString<char>(fake.string()), true));
    EXPECT_EQ(log.Count(L"fake.zip: Not a zip archive"), 1u) << log.Dump();
}

// The entry's data is damaged after zipping; stored entries fail their CRC
// check, deflated ones their decompression or CRC.
TEST_F(ArchiveZipTest, DamagedEntryReadsAsAnErrorLoggedOnce)
{
    m_dir.Write("damaged/data.txt", std::string(4000, 'A') + std::string(4000, 'z'));
    for (const std::string option : {"-0", "-9"}) {
        const auto archive = m_dir.Path() / ("damaged" + option + ".zip");
        zipWithTool(m_dir.Path() / "damaged", archive.string(), option, "data.txt");
        std::string raw = testsupport::ReadFile(archive);
        // Local header: 30 bytes, then the name and the extra field, then the data.
        const size_t dataStart =
            30 + (uint8_t(raw[26]) | uint8_t(raw[27]) << 8) + (uint8_t(raw[28]) | uint8_t(raw[29]) << 8);
        for (size_t i = dataStart + 8; i < dataStart + 16; ++i)
            raw[i] = char(~raw[i]);
        std::ofstream(archive, std::ios::binary | std::ios::trunc) << raw;

        testsupport::LogCapture log;
        ArchiveZip zip;
        ASSERT_TRUE(zip.Open(TString<char>(archive.string()), true)) << log.Dump();
        auto stream = zip.GetZipInputStream(entry(zip, L"data.txt"));
        ASSERT_TRUE(stream);
        std::vector<unsigned char> bytes{1, 2, 3};
        *stream >> bytes;
        EXPECT_TRUE(bytes.empty()) << option;
        EXPECT_EQ(stream->GetLastError(), wxSTREAM_READ_ERROR);
        EXPECT_FALSE(stream->ReadAll(bytes));
        EXPECT_EQ(log.Size(), 1u) << option << log.Dump();
        EXPECT_TRUE(log.Contains(L"cannot read entry data.txt of zip archive")) << log.Dump();
    }
}

// Archives with hostile names are written with libzip itself, which, like
// other tools, stores whatever name it is given.
TEST_F(ArchiveZipTest, UnsafeEntryNamesAreRefusedAndImpliedFoldersListed)
{
    const std::string path = m_dir.Str() + "/hostile.zip";
    int error = 0;
    zip_t* writer = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
    ASSERT_TRUE(writer);
    for (const char* name : {"dir/sub/good.txt", "../x", "/abs.txt", "a/../../b", "C:/win.txt", "..\\y"}) {
        zip_source_t* source = zip_source_buffer(writer, "data", 4, 0);
        ASSERT_GE(zip_file_add(writer, name, source, ZIP_FL_ENC_UTF_8), 0) << name;
    }
    ASSERT_EQ(zip_close(writer), 0);

    testsupport::LogCapture log;
    ArchiveZip zip;
    ASSERT_TRUE(zip.Open(TString<char>(path), true));
    EXPECT_EQ(log.Count(L"refused 5 unsafe entry name(s) in zip archive"), 1u) << log.Dump();

    Entries found;
    EXPECT_EQ(zip.EntriesList(found, L"*", ArchiveZip::EntryFiles), 1);
    EXPECT_EQ(found.size(), 1u) << "only dir/sub/good.txt";
    EXPECT_EQ(zip.EntriesList(found, L"*", ArchiveZip::EntryFolders), 1);
    ASSERT_EQ(found.size(), 2u);
    EXPECT_FALSE(zip.GetZipInputStream(found.begin()->second)); // a folder has nothing to read

    log.Clear();
    EXPECT_FALSE(zip.GetZipInputStream(ArchiveZipEntry(L"../x", 1, 4, 4, false)));
    EXPECT_EQ(log.Count(L"cannot read entry ../x"), 1u) << log.Dump();
}

} // namespace

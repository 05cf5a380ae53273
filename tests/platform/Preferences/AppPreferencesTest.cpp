#include "Preferences/AppPreferences.h"
#include "Toolkit/AtomicFile.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace {

using Preferences::AppPreferences;

std::string fileContent(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), {});
}

// Points the configuration directory at a fresh folder for each test.
class AppPreferencesTest : public testing::Test {
protected:
    void SetUp() override
    {
        const char* previous = std::getenv("UIKIT_CONFIG_DIR");
        m_previous = previous ? previous : "";
        m_config = m_dir.Path() / "config";
        setenv("UIKIT_CONFIG_DIR", m_config.c_str(), 1);
    }
    void TearDown() override
    {
        Toolkit::AtomicFile::SetBeforeRenameHook(nullptr);
        if (m_previous.empty())
            unsetenv("UIKIT_CONFIG_DIR");
        else
            setenv("UIKIT_CONFIG_DIR", m_previous.c_str(), 1);
    }
    std::filesystem::path File() const { return m_config / "preferences.ini"; }

    testsupport::TempDir m_dir;
    std::filesystem::path m_config;
    std::string m_previous;
};

TEST_F(AppPreferencesTest, SectionsKeepTheirOwnKeysAcrossStores)
{
    auto appearance = AppPreferences::Open("Appearance");
    auto settings = AppPreferences::Open("Settings");
    ASSERT_TRUE(appearance);
    ASSERT_TRUE(settings);
    EXPECT_EQ(appearance->GetFilePath(), TString<char>(File().string()));

    TString<wchar_t> value;
    EXPECT_FALSE(appearance->Get("Culture", value));
    EXPECT_TRUE(appearance->Set("Culture", L"fr-CA"));
    EXPECT_TRUE(settings->Set("StreamLogs", true));
    EXPECT_TRUE(settings->Set("Culture", TString<wchar_t>(L"  not the appearance one  ")));
    EXPECT_TRUE(appearance->Set("Native", L"Fran\u00E7ais"));

    auto reopened = AppPreferences::Open("Appearance");
    ASSERT_TRUE(reopened);
    EXPECT_TRUE(reopened->Get("Culture", value));
    EXPECT_EQ(value, L"fr-CA");
    EXPECT_TRUE(reopened->Get("native", value));
    EXPECT_EQ(value, L"Fran\u00E7ais");
    bool logs = false;
    EXPECT_TRUE(settings->Get("StreamLogs", logs));
    EXPECT_TRUE(logs);
    EXPECT_TRUE(settings->Get("Culture", value));
    EXPECT_EQ(value, L"  not the appearance one  ");
    EXPECT_FALSE(settings->Get("Culture", logs)); // not a boolean

    EXPECT_TRUE(settings->Set("StreamLogs", false));
    EXPECT_TRUE(settings->Get("StreamLogs", logs));
    EXPECT_FALSE(logs);
    EXPECT_TRUE(appearance->Remove("Culture"));
    EXPECT_FALSE(appearance->Remove("Culture"));
    EXPECT_FALSE(reopened->Get("Culture", value));
    EXPECT_TRUE(reopened->Get("Native", value));
}

TEST_F(AppPreferencesTest, CrashBeforeTheRenameKeepsThePreviousFile)
{
    auto store = AppPreferences::Open("Appearance");
    ASSERT_TRUE(store);
    ASSERT_TRUE(store->Set("Culture", L"fr"));
    const std::string before = fileContent(File());

    TString<char> leftBehind;
    Toolkit::AtomicFile::SetBeforeRenameHook([&](const TString<char>& temp) {
        leftBehind = temp;
        return false; // the process "dies" here
    });
    testsupport::LogCapture log;
    EXPECT_FALSE(store->Set("Culture", L"de"));
    Toolkit::AtomicFile::SetBeforeRenameHook(nullptr);

    EXPECT_EQ(fileContent(File()), before);
    ASSERT_FALSE(leftBehind.empty());
    EXPECT_NE(fileContent(std::string(leftBehind)).find("Culture=de"), std::string::npos);
    EXPECT_EQ(log.Size(), 1u) << log.Dump();

    auto afterRestart = AppPreferences::Open("Appearance");
    ASSERT_TRUE(afterRestart);
    TString<wchar_t> value;
    EXPECT_TRUE(afterRestart->Get("Culture", value));
    EXPECT_EQ(value, L"fr");
    EXPECT_TRUE(afterRestart->Set("Culture", L"es"));
    EXPECT_TRUE(afterRestart->Get("Culture", value));
    EXPECT_EQ(value, L"es");
}

TEST_F(AppPreferencesTest, CorruptFileIsSetAsideAndTheStoreStartsEmpty)
{
    const std::string garbage = std::string("[Appearance]\nCulture=fr\n\x00\x01\x02 binary \xFF\xFE\n", 38) + "junk";
    std::filesystem::create_directories(m_config);
    std::ofstream(File(), std::ios::binary) << garbage;

    testsupport::LogCapture log;
    auto store = AppPreferences::Open("Appearance");
    ASSERT_TRUE(store);
    ASSERT_EQ(log.Size(), 1u) << log.Dump();
    EXPECT_TRUE(log.Contains(L"preferences.ini is corrupt (line 3 is malformed)")) << log.Dump();
    EXPECT_TRUE(log.Contains(L"kept aside as " + m_config.wstring() + L"/preferences.ini.corrupt")) << log.Dump();
    EXPECT_EQ(fileContent(m_config / "preferences.ini.corrupt"), garbage);
    EXPECT_FALSE(std::filesystem::exists(File()));

    TString<wchar_t> value;
    EXPECT_FALSE(store->Get("Culture", value));
    EXPECT_TRUE(store->Set("Culture", L"en"));
    EXPECT_TRUE(store->Get("Culture", value));
    EXPECT_EQ(value, L"en");
    EXPECT_EQ(log.Size(), 1u) << log.Dump();
}

TEST_F(AppPreferencesTest, UnusableStoresAreNullWithOneLogEntry)
{
    testsupport::LogCapture log;
    EXPECT_FALSE(AppPreferences::Open(""));
    EXPECT_EQ(log.Count(L"section name is empty"), 1u) << log.Dump();

    log.Clear();
    m_dir.Write("config", "a file where the directory should be");
    EXPECT_FALSE(AppPreferences::Open("Appearance"));
    EXPECT_EQ(log.Size(), 1u) << log.Dump();
    EXPECT_TRUE(log.Contains(L"cannot create directory " + m_config.wstring())) << log.Dump();

    std::filesystem::remove(m_config);
    auto store = AppPreferences::Open("Appearance");
    ASSERT_TRUE(store);
    log.Clear();
    EXPECT_FALSE(store->Set("bad\nkey", L"v"));
    EXPECT_FALSE(store->Set("Culture", L"line\nbreak"));
    EXPECT_EQ(log.Size(), 2u) << log.Dump();
    EXPECT_FALSE(std::filesystem::exists(File()));
}

} // namespace

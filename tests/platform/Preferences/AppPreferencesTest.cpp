#include "Preferences/AppPreferences.h"
#include "Toolkit/AtomicFile.h"
#include "Toolkit/UTF8.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <functional>
#include <sys/stat.h>

namespace {

using Preferences::AppPreferences;

// Points the configuration directory at a fresh folder for each test.
class AppPreferencesTest : public testing::Test {
protected:
    void TearDown() override { Toolkit::AtomicFile::SetBeforeRenameHook(nullptr); }
    std::filesystem::path File() const { return m_config / "preferences.ini"; }

    testsupport::TempDir m_dir;
    std::filesystem::path m_config = m_dir.Path() / "config";
    testsupport::ScopedEnv m_env{"UIKIT_CONFIG_DIR", m_config.string()};
};

TEST_F(AppPreferencesTest, SectionsKeepTheirOwnKeysAcrossStores)
{
    auto appearance = AppPreferences::Open("Appearance");
    auto settings = AppPreferences::Open("Settings");
    ASSERT_TRUE(appearance && settings);
    EXPECT_TRUE(appearance->Set("Culture", L"fr-CA"));
    EXPECT_TRUE(settings->Set("StreamLogs", true));
    EXPECT_TRUE(settings->Set("Culture", TString<wchar_t>(L"de")));

    auto reopened = AppPreferences::Open("Appearance");
    ASSERT_TRUE(reopened);
    TString<wchar_t> value;
    EXPECT_TRUE(reopened->Get("culture", value));
    EXPECT_EQ(value, L"fr-CA");
    bool logs = false;
    EXPECT_TRUE(settings->Get("StreamLogs", logs) && logs);
    EXPECT_FALSE(settings->Get("Culture", logs)); // not a boolean
}

TEST_F(AppPreferencesTest, CrashBeforeTheRenameKeepsThePreviousFile)
{
    auto store = AppPreferences::Open("Appearance");
    ASSERT_TRUE(store);
    ASSERT_TRUE(store->Set("Culture", L"fr"));
    // The process "dies" with its temporary file written, before the rename.
    Toolkit::AtomicFile::SetBeforeRenameHook([](const TString<char>&) { return false; });
    testsupport::LogCapture log;
    EXPECT_FALSE(store->Set("Culture", L"de"));
    Toolkit::AtomicFile::SetBeforeRenameHook(nullptr);

    auto afterRestart = AppPreferences::Open("Appearance");
    ASSERT_TRUE(afterRestart);
    TString<wchar_t> value;
    EXPECT_TRUE(afterRestart->Get("Culture", value));
    EXPECT_EQ(value, L"fr");
    EXPECT_TRUE(afterRestart->Set("Culture", L"es")) << "the left-over temporary file is no obstacle";
}

// A line that cannot be read costs that line only: the chosen culture and
// the other settings stay, and the problem is logged once, not at every read.
TEST_F(AppPreferencesTest, UnreadableLinesAreSkippedAndEverythingElseKept)
{
    m_dir.Write("config/preferences.ini", "[Appearance]\n; r\xE9glages\nCulture=fr\n[Logs]\nStream=1\n");
    testsupport::LogCapture log;
    auto store = AppPreferences::Open("Appearance");
    ASSERT_TRUE(store);
    TString<wchar_t> value;
    EXPECT_TRUE(store->Get("Culture", value));
    EXPECT_EQ(value, L"fr");
    EXPECT_TRUE(log.Contains(L"preferences.ini:2: malformed line skipped")) << log.Dump();

    // The next write keeps every readable setting and drops the bad line.
    EXPECT_TRUE(store->Set("Culture", L"es"));
    EXPECT_EQ(testsupport::ReadFile(File()), "[Appearance]\nCulture=es\n\n[Logs]\nStream=1\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_config), {}), 1) << "nothing set aside";
    EXPECT_EQ(log.Size(), 1u) << log.Dump();
}

// What cannot be read at all is set aside without being opened for reading
// (a FIFO would block, /dev/zero would never end), each time under a new
// name, the newest three kept.
TEST_F(AppPreferencesTest, WhatCannotBeReadIsSetAsideUnderANewName)
{
    std::filesystem::create_directories(m_config);
    const struct {
        const char* name;
        std::function<void()> make;
        const wchar_t* logged;
    } cases[] = {
        {"FIFO", [&] { ASSERT_EQ(::mkfifo(File().c_str(), 0600), 0); }, L"it is a FIFO"},
        {"symlink to /dev/zero", [&] { std::filesystem::create_symlink("/dev/zero", File()); }, L"it is a device"},
        {"directory", [&] { std::filesystem::create_directory(File()); }, L"it is a directory"},
        {"FIFO again", [&] { ASSERT_EQ(::mkfifo(File().c_str(), 0600), 0); }, L"it is a FIFO"},
    };
    int serial = 0;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        c.make();
        testsupport::LogCapture log;
        auto store = AppPreferences::Open("Appearance");
        ASSERT_TRUE(store);
        const auto aside = File().string() + ".corrupt-" + std::to_string(++serial);
        EXPECT_EQ(log.Size(), 2u) << log.Dump();
        EXPECT_TRUE(log.Contains(c.logged)) << log.Dump();
        EXPECT_TRUE(log.Contains(L"cannot be read; kept aside as " + Toolkit::UTF8::ToUNICODE(aside))) << log.Dump();
        EXPECT_TRUE(store->Set("Culture", L"en"));
        std::filesystem::remove(File());
    }
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(File().string() + ".corrupt-1")))
        << "only the newest three are kept";
    for (const char* kept : {".corrupt-2", ".corrupt-3", ".corrupt-4"})
        EXPECT_TRUE(std::filesystem::exists(std::filesystem::symlink_status(File().string() + kept))) << kept;
}

TEST_F(AppPreferencesTest, AFileWhereTheFolderShouldBeGivesNoStoreAndOneLogEntry)
{
    testsupport::LogCapture log;
    m_dir.Write("config", "a file where the directory should be");
    EXPECT_FALSE(AppPreferences::Open("Appearance"));
    EXPECT_EQ(log.Count(L"cannot create directory " + m_config.wstring()), 1u) << log.Dump();
}

} // namespace

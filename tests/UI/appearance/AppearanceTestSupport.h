#pragma once
// Shared by the appearance tests: a private appearances directory and
// configuration directory per test (set through the environment, which
// PathManager prefers), the test pack in both forms, and small pack writers.
#include "TestSupport.h"
#include "appearance/Appearance.h"

#include <zip.h>

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace appearancetest {

namespace fs = std::filesystem;

// The test pack as a directory, and the folder holding its zipped twin.
inline fs::path TestPackDir() { return testsupport::DataDir() / "packs" / "testskin.ar"; }
inline fs::path ZippedPacksDir() { return fs::path(UIKIT_TEST_PACKS_DIR); }

// Sets an environment variable for the lifetime of the object.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const std::string& value) : m_name(name)
    {
        if (const char* old = std::getenv(name))
            m_old = old;
        setenv(name, value.c_str(), 1);
    }
    ~ScopedEnv()
    {
        if (m_old)
            setenv(m_name, m_old->c_str(), 1);
        else
            unsetenv(m_name);
    }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

private:
    const char* m_name;
    std::optional<std::string> m_old;
};

// Writes a zip archive whose entries hold the given texts; names ending in
// "/" are folders.
inline void WriteZip(const fs::path& path, const std::vector<std::pair<std::string, std::string>>& entries)
{
    int error = 0;
    zip_t* archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
    ASSERT_NE(archive, nullptr) << "zip error " << error;
    for (const auto& [name, content] : entries) {
        if (!name.empty() && name.back() == '/') {
            zip_dir_add(archive, name.substr(0, name.size() - 1).c_str(), ZIP_FL_ENC_UTF_8);
            continue;
        }
        zip_source_t* source = zip_source_buffer(archive, content.data(), content.size(), 0);
        ASSERT_GE(zip_file_add(archive, name.c_str(), source, ZIP_FL_ENC_UTF_8 | ZIP_FL_OVERWRITE), 0) << name;
    }
    ASSERT_EQ(zip_close(archive), 0);
}

// A language file of one culture with the given definition lines.
inline std::string LanguageFile(const std::string& culture, const std::string& nativeName,
                                const std::vector<std::string>& lines)
{
    std::string text = "// CULTURE " + culture + " " + nativeName + "\nSTRINGTABLE\nBEGIN\n";
    for (const auto& line : lines)
        text += "    " + line + "\n";
    return text + "END\n";
}

// Each test gets empty appearances and configuration directories, the C
// locale, empty command-line options and its own Appearance.
class AppearanceTest : public testing::Test {
protected:
    AppearanceTest()
        : m_appearancesEnv("UIKIT_APPEARANCES_DIR", (m_temp.Path() / "appearances").string()),
          m_configEnv("UIKIT_CONFIG_DIR", (m_temp.Path() / "config").string()),
          m_locale(std::setlocale(LC_ALL, nullptr))
    {
        fs::create_directories(m_temp.Path() / "appearances");
        std::setlocale(LC_ALL, "C");
        UIKit::Appearance::CmdLine_OptionAppearance.clear();
        UIKit::Appearance::CmdLine_OptionCulture.clear();
        m_appearance.reset(new UIKit::Appearance());
    }
    ~AppearanceTest() override
    {
        m_appearance.reset();
        UIKit::Appearance::CmdLine_OptionAppearance.clear();
        UIKit::Appearance::CmdLine_OptionCulture.clear();
        std::setlocale(LC_ALL, m_locale.c_str());
    }

    fs::path Appearances() const { return m_temp.Path() / "appearances"; }
    // Points the appearances directory somewhere else for the rest of the test.
    void UseAppearancesDir(const fs::path& dir) { setenv("UIKIT_APPEARANCES_DIR", dir.c_str(), 1); }
    // Writes a directory pack holding the given files (relative path -> content).
    void WritePack(const std::string& name, const std::map<std::string, std::string>& files) const
    {
        fs::create_directories(Appearances() / name);
        for (const auto& [relative, content] : files)
            m_temp.Write("appearances/" + name + "/" + relative, content);
    }
    // Init with one culture on the command line, asserting it succeeds.
    void InitWithCulture(const std::wstring& culture)
    {
        UIKit::Appearance::CmdLine_OptionCulture = culture;
        ASSERT_TRUE(m_appearance->Init());
    }

    testsupport::TempDir m_temp;
    ScopedEnv m_appearancesEnv;
    ScopedEnv m_configEnv;
    std::string m_locale;
    Toolkit::smart_ptr<UIKit::Appearance> m_appearance;
};

} // namespace appearancetest

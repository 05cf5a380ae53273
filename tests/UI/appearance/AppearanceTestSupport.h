#pragma once
// Shared by the appearance tests: pack writers (a directory or a zip
// archive from one table of files), the test pack in both forms, a capture
// of the error sink, and a fixture giving each test its own appearances and
// configuration directories (set through the environment, which
// PathManager prefers), the C locale and its own Appearance.
#include "ErrorCapture.h"
#include "TestSupport.h"
#include "appearance/Appearance.h"
#include "appearance/PackLimits.h"

#include <zip.h>

#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

namespace appearancetest {

namespace fs = std::filesystem;
// Relative path -> content; names ending in "/" are empty folders.
using Files = std::map<std::string, std::string>;

// The test pack as a directory, and the folder holding its zipped twin.
inline fs::path TestPackDir() { return testsupport::DataDir() / "packs" / "testskin.ar"; }
inline fs::path ZippedPacksDir() { return fs::path(UIKIT_TEST_PACKS_DIR); }

inline void WriteDirPack(const fs::path& dir, const Files& files)
{
    fs::create_directories(dir);
    for (const auto& [relative, content] : files) {
        const fs::path path = dir / relative;
        fs::create_directories(path.parent_path());
        if (relative.back() != '/')
            std::ofstream(path, std::ios::binary) << content;
    }
}

inline void WriteZipPack(const fs::path& path, const Files& files)
{
    int error = 0;
    zip_t* archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
    ASSERT_NE(archive, nullptr) << "zip error " << error;
    for (const auto& [name, content] : files) {
        if (name.back() == '/') {
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

using testsupport::ErrorCapture;

// Replaces the pack limits in force for the lifetime of the object, so
// that small inputs trip them.
class ScopedLimits {
public:
    explicit ScopedLimits(const UIKit::PackLimits& limits) : m_old(UIKit::PackLimits::Current())
    {
        UIKit::PackLimits::Current() = limits;
    }
    ~ScopedLimits() { UIKit::PackLimits::Current() = m_old; }
    ScopedLimits(const ScopedLimits&) = delete;
    ScopedLimits& operator=(const ScopedLimits&) = delete;

private:
    UIKit::PackLimits m_old;
};

class AppearanceTest : public testing::Test {
protected:
    AppearanceTest() : m_appearancesEnv("UIKIT_APPEARANCES_DIR", Appearances().string()),
          m_configEnv("UIKIT_CONFIG_DIR", (m_temp.Path() / "config").string()),
          m_locale(std::setlocale(LC_ALL, nullptr))
    {
        fs::create_directories(Appearances());
        std::setlocale(LC_ALL, "C");
        m_appearance.reset(new UIKit::Appearance());
    }
    ~AppearanceTest() override
    {
        m_appearance.reset();
        std::setlocale(LC_ALL, m_locale.c_str());
    }

    fs::path Appearances() const { return m_temp.Path() / "appearances"; }
    // Points the appearances directory somewhere else for the rest of the test.
    void UseAppearancesDir(const fs::path& dir) { setenv("UIKIT_APPEARANCES_DIR", dir.c_str(), 1); }
    void WritePack(const std::string& name, const Files& files) const { WriteDirPack(Appearances() / name, files); }

    testsupport::TempDir m_temp;
    testsupport::ScopedEnv m_appearancesEnv;
    testsupport::ScopedEnv m_configEnv;
    std::string m_locale;
    Toolkit::smart_ptr<UIKit::Appearance> m_appearance;
};

} // namespace appearancetest

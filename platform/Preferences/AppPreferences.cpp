#include "Preferences/AppPreferences.h"

#include "Preferences/CorruptFiles.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/IniFile.h"
#include "Toolkit/PathManager.h"
#include "Toolkit/UTF8.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <mutex>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Preferences {
namespace {

using Toolkit::UTF8::ToUNICODE;

// Serialises the read-modify-write of the file between the threads of this
// process (the recursive mutex lets a store be used from a log sink) and,
// through flock on the directory, between processes.
class StoreLock {
public:
    explicit StoreLock(const TString<char>& dir) : m_guard(lock())
    {
        m_fd = ::open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (m_fd >= 0)
            while (::flock(m_fd, LOCK_EX) != 0 && errno == EINTR) {
            }
    }
    ~StoreLock()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    StoreLock(const StoreLock&) = delete;
    StoreLock& operator=(const StoreLock&) = delete;

private:
    static std::recursive_mutex& lock()
    {
        static std::recursive_mutex instance;
        return instance;
    }
    std::lock_guard<std::recursive_mutex> m_guard;
    int m_fd = -1;
};

// What a file's problems were last reported for: each version of a file is
// reported once, not at every Get and Set that reads it again.
struct Version {
    std::string path;
    dev_t dev = 0;
    ino_t ino = 0;
    off_t size = 0;
    timespec modified{};
    bool operator==(const Version& o) const
    {
        return path == o.path && dev == o.dev && ino == o.ino && size == o.size &&
               modified.tv_sec == o.modified.tv_sec && modified.tv_nsec == o.modified.tv_nsec;
    }
};

// True the first time a version of the file is seen; called under StoreLock.
bool isNewVersion(const TString<char>& path)
{
    static Version lastReported;
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0)
        return true;
    const Version current{path, st.st_dev, st.st_ino, st.st_size, st.st_mtim};
    if (current == lastReported)
        return false;
    lastReported = current;
    return true;
}

TString<char> directoryOf(const TString<char>& path)
{
    return TString<char>(std::filesystem::path(std::string(path)).parent_path().string());
}

} // namespace

const char* const AppPreferences::c_strFileName = "preferences.ini";

AppPreferences::AppPreferences(const TString<char>& section, const TString<char>& path)
    : m_section(section), m_path(path)
{
}

Toolkit::smart_ptr<AppPreferences> AppPreferences::Open(const TString<char>& section)
{
    if (section.empty()) {
        TK_LOG(Toolkit::LogError) << "cannot open preferences: the section name is empty";
        return nullptr;
    }
    const auto dir = Toolkit::PathManager::Instance().GetConfigDir();
    std::error_code ec;
    std::filesystem::create_directories(std::string(dir), ec);
    if (ec || !Toolkit::PathManager::DirExists(dir)) {
        TK_LOG(Toolkit::LogError) << "cannot open preferences: cannot create directory " << dir << ": "
                                  << (ec ? ec.message() : std::string("not a directory"));
        return nullptr;
    }
    auto path = dir;
    Toolkit::PathManager::AppendPath(path, c_strFileName);
    auto store = Toolkit::make_smart<AppPreferences>(section, path);
    // Reading once now reports an unreadable file here, and sets a corrupt one aside.
    StoreLock lock(dir);
    Toolkit::IniFile ini;
    if (!store->load(ini))
        return nullptr;
    return store;
}

bool AppPreferences::load(Toolkit::IniFile& ini) const
{
    ini.Clear();
    ini.SetPath(m_path);
    struct stat st {};
    if (::lstat(m_path.c_str(), &st) != 0 && errno == ENOENT)
        return true;
    // Lines that cannot be read are skipped (and logged once); the others still count.
    const auto report = isNewVersion(m_path) ? Toolkit::IniFile::Report::Log : Toolkit::IniFile::Report::Quiet;
    if (ini.Open(m_path, report))
        return true;
    ini.Clear();
    if (::lstat(m_path.c_str(), &st) != 0 && errno == ENOENT)
        return true; // removed meanwhile by another process: nothing to read
    // Nothing of it can be read: keep it for the user and start afresh.
    const auto aside = CorruptFiles::MoveAside(m_path);
    TK_LOG(Toolkit::LogError) << "preferences file " << m_path << " cannot be read; "
                              << (aside.empty() ? "cannot move it aside: " + std::string(std::strerror(errno))
                                                : "kept aside as " + aside)
                              << "; starting from empty preferences";
    return !aside.empty();
}

bool AppPreferences::Get(const TString<char>& key, TString<wchar_t>& value) const
{
    StoreLock lock(directoryOf(m_path));
    Toolkit::IniFile ini;
    return load(ini) && ini.Get(ToUNICODE(m_section), ToUNICODE(key), value);
}

bool AppPreferences::Get(const TString<char>& key, bool& value) const
{
    TString<wchar_t> text;
    if (!Get(key, text))
        return false;
    text = text.Trim();
    for (const wchar_t* yes : {L"1", L"true", L"yes"}) {
        if (text.equalsNoCase(yes)) {
            value = true;
            return true;
        }
    }
    for (const wchar_t* no : {L"0", L"false", L"no"}) {
        if (text.equalsNoCase(no)) {
            value = false;
            return true;
        }
    }
    return false;
}

bool AppPreferences::Set(const TString<char>& key, const TString<wchar_t>& value) { return update(key, &value); }

bool AppPreferences::Set(const TString<char>& key, bool value)
{
    const TString<wchar_t> text(value ? L"1" : L"0");
    return update(key, &text);
}

bool AppPreferences::Remove(const TString<char>& key) { return update(key, nullptr); }

bool AppPreferences::update(const TString<char>& key, const TString<wchar_t>* value)
{
    StoreLock lock(directoryOf(m_path));
    Toolkit::IniFile ini;
    if (!load(ini))
        return false;
    const auto section = ToUNICODE(m_section);
    if (value ? !ini.Set(section, ToUNICODE(key), *value) : !ini.RemoveKey(section, ToUNICODE(key)))
        return false;
    return ini.SaveAs(m_path);
}

} // namespace Preferences

#pragma once
// The user's preferences: named sections of key/value pairs, kept in one
// INI file, "preferences.ini" in the configuration directory
// (Toolkit::PathManager::GetConfigDir()), one INI section per preferences
// section.
//
// Every Get reads the file and every Set or Remove re-reads it, changes one
// key and writes it back atomically, under a lock held by the process and
// an flock on the directory, so that stores of different sections, in this
// process or in another, never lose each other's keys. A crash while
// writing leaves the previous file intact.
//
// A line that cannot be read (not UTF-8, binary, too long) is skipped with
// one log entry per version of the file, and every other setting is kept;
// the next write drops it. Only a file that cannot be read at all (not a
// regular file, unreadable) is set aside (CorruptFiles, logged) and the
// store starts empty. Reading is bounded by IniFile's limits.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

namespace Toolkit {
class IniFile;
}

namespace Preferences {

class AppPreferences {
public:
    static const char* const c_strFileName;

    // The store of one section; null (logged) when the section name is
    // empty or the configuration directory or file cannot be used.
    static Toolkit::smart_ptr<AppPreferences> Open(const TString<char>& section);

    // False when the key is absent (or the file cannot be read).
    bool Get(const TString<char>& key, TString<wchar_t>& value) const;
    // Booleans are stored as "1" and "0"; "true"/"false" and "yes"/"no"
    // read too. False when absent or not a boolean.
    bool Get(const TString<char>& key, bool& value) const;

    // False (logged) when the value cannot be stored.
    bool Set(const TString<char>& key, const TString<wchar_t>& value);
    bool Set(const TString<char>& key, const wchar_t* value) { return Set(key, TString<wchar_t>(value)); }
    bool Set(const TString<char>& key, bool value);
    // A narrow text would otherwise convert to bool; values are wide.
    bool Set(const TString<char>& key, const char* value) = delete;
    // False when the key was absent or the file cannot be written.
    bool Remove(const TString<char>& key);

    const TString<char>& GetSection() const { return m_section; }
    const TString<char>& GetFilePath() const { return m_path; }

    AppPreferences(const TString<char>& section, const TString<char>& path);

private:
    // Reads the file into ini; a missing file gives an empty one.
    bool load(Toolkit::IniFile& ini) const;
    bool update(const TString<char>& key, const TString<wchar_t>* value);

    TString<char> m_section;
    TString<char> m_path;
};

} // namespace Preferences

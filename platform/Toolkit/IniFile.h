#pragma once
// An INI file: "[section]" headers and "key=value" lines, UTF-8.
//
// Reading rules:
// - section and key names match without regard to case ("[mainbundle]"
//   answers for "MainBundle"); the file's own spelling is kept on saving;
// - blanks around names and values are trimmed; a value written between
//   double quotes keeps its inner blanks (the quotes are removed);
// - a line whose first non-blank character is ";" or "#" is a comment;
//   there are no comments at the end of key lines ("a=b ; c" has the value
//   "b ; c");
// - a value runs from the first "=" to the end of the line;
// - keys before any header belong to the section named "";
// - a later key or section of the same name extends or replaces the earlier;
// - any other line (no "=", an empty key, an unclosed "[", invalid UTF-8, a
//   NUL byte) is malformed: it is skipped, and all the malformed lines of a
//   file are reported in one log entry naming the file and the first line.
//
// Saving writes the sections and keys in their order, without the comments,
// atomically (AtomicFile).
#include "Toolkit/TString.h"

#include <vector>

namespace Toolkit {

class IniFile {
public:
    enum class Report { Log, Quiet }; // whether Open logs malformed lines

    // Reads the file, replacing the current content. False (logged) when it
    // cannot be read; malformed lines do not make it fail.
    bool Open(const TString<char>& path, Report report = Report::Log);
    bool Open(const TString<wchar_t>& path, Report report = Report::Log);
    const TString<char>& GetPath() const { return m_path; }
    // Names the file that Save writes and messages mention.
    void SetPath(const TString<char>& path) { m_path = path; }
    // Line numbers (1-based) that the last Open skipped as malformed.
    const std::vector<size_t>& GetMalformedLines() const { return m_malformed; }
    void Clear();

    bool HasSection(const TString<wchar_t>& section) const;
    bool HasKey(const TString<wchar_t>& section, const TString<wchar_t>& key) const;
    // False when the key is absent.
    bool Get(const TString<wchar_t>& section, const TString<wchar_t>& key, TString<wchar_t>& value) const;
    TString<wchar_t> GetString(const TString<wchar_t>& section, const TString<wchar_t>& key,
                               const TString<wchar_t>& defaultValue = {}) const;
    // The default when the key is absent or its value is not a whole number.
    long long GetInt(const TString<wchar_t>& section, const TString<wchar_t>& key, long long defaultValue) const;

    // Adds or replaces a key, making the section when needed. False (logged)
    // when the names or the value could not be read back: line breaks or
    // NULs anywhere, "]" in a section name, "=" in a key, blanks around names.
    bool Set(const TString<wchar_t>& section, const TString<wchar_t>& key, const TString<wchar_t>& value);
    bool SetInt(const TString<wchar_t>& section, const TString<wchar_t>& key, long long value);
    bool RemoveKey(const TString<wchar_t>& section, const TString<wchar_t>& key);
    bool RemoveSection(const TString<wchar_t>& section);

    std::vector<TString<wchar_t>> GetSectionNames() const;
    std::vector<TString<wchar_t>> GetKeyNames(const TString<wchar_t>& section) const;

    // Writes to the path last opened or saved to.
    bool Save();
    bool SaveAs(const TString<char>& path);
    // The file's text as Save writes it.
    TString<char> ToText() const;

private:
    struct Entry {
        TString<wchar_t> key;
        TString<wchar_t> value;
    };
    struct Section {
        TString<wchar_t> name;
        std::vector<Entry> entries;
    };

    bool parseLine(const TString<wchar_t>& line, Section*& current);
    void reportMalformed(const std::vector<TString<wchar_t>>& texts) const;
    Section* findSection(const TString<wchar_t>& name);
    const Section* findSection(const TString<wchar_t>& name) const;
    Section& section(const TString<wchar_t>& name);
    static const Entry* findEntry(const Section& section, const TString<wchar_t>& key);

    TString<char> m_path;
    std::vector<Section> m_sections;
    std::vector<size_t> m_malformed;
};

} // namespace Toolkit

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
//   control character other than tab) is malformed: it is skipped, and all
//   the malformed lines of a file are reported in one log entry naming the
//   file, the first line and a short excerpt of it.
//
// Reading is bounded (Limits) and takes time linear in the file's size: a
// file is read whole up to its size limit in one pass, names are found
// through hash indexes, and what lies past a limit is dropped with one log
// entry naming the file and the limit. Only regular files are read.
//
// Saving writes the sections and keys in their order, without the comments,
// atomically (AtomicFile).
#include "Toolkit/TString.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace Toolkit {

class IniFile {
public:
    enum class Report { Log, Quiet }; // whether Open logs malformed lines

    // Far above any real configuration or preferences file.
    static constexpr size_t c_maxFileBytes = 16 * 1024 * 1024;
    static constexpr size_t c_maxLineBytes = 64 * 1024;
    static constexpr size_t c_maxKeys = 200000;
    struct Limits {
        size_t fileBytes = c_maxFileBytes; // bytes read; the rest is ignored
        size_t lineBytes = c_maxLineBytes; // a longer line is skipped as malformed
        size_t keys = c_maxKeys;           // keys read, all sections together
    };
    // Tests lower the limits to trip them with small files.
    void SetLimits(const Limits& limits) { m_limits = limits; }

    // Reads the file, replacing the current content. False (logged) when it
    // is missing, is not a regular file or cannot be read; malformed lines
    // and limits reached do not make it fail.
    bool Open(const TString<char>& path, Report report = Report::Log);
    bool Open(const TString<wchar_t>& path, Report report = Report::Log);
    // Reads the text of a file named by GetPath(), replacing the current
    // content, as Open does once it has the file's bytes.
    void Load(std::string_view text, Report report = Report::Log);
    const TString<char>& GetPath() const { return m_path; }
    // Names the file that Save writes and messages mention.
    void SetPath(const TString<char>& path) { m_path = path; }
    // Line numbers (1-based) that the last Open skipped as malformed.
    const std::vector<size_t>& GetMalformedLines() const { return m_malformed; }
    // Whether the last Open stopped at a limit and left part of the file out.
    bool IsIncomplete() const { return m_incomplete; }
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
    // when the names or the value could not be read back: control
    // characters other than tab anywhere, "]" in a section name, "=" in a key, blanks around names.
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
    // Names are indexed in lower case, as they match.
    using Index = std::unordered_map<std::wstring, size_t>;
    struct Section {
        TString<wchar_t> name;
        std::vector<Entry> entries;
        Index index;
    };
    // What one Open found wrong, for its log entries.
    struct Findings {
        TString<wchar_t> firstMalformed; // excerpt of the first malformed line
        size_t firstLongLine = 0;
        size_t longLines = 0;
        size_t firstKeyOverLimit = 0;
    };

    void parse(std::string_view text, Report report);
    bool parseLine(std::string_view bytes, size_t number, Section*& current, Findings& findings);
    bool parseText(const TString<wchar_t>& line, size_t number, Section*& current, Findings& findings);
    void report(const Findings& findings) const;
    Section* findSection(const TString<wchar_t>& name);
    const Section* findSection(const TString<wchar_t>& name) const;
    Section& section(const TString<wchar_t>& name);
    static Entry* findEntry(Section& section, const TString<wchar_t>& key);
    static const Entry* findEntry(const Section& section, const TString<wchar_t>& key);
    void setEntry(Section& section, const TString<wchar_t>& key, const TString<wchar_t>& value);
    static void reindex(Section& section);
    void reindexSections();

    TString<char> m_path;
    Limits m_limits;
    std::vector<Section> m_sections;
    Index m_sectionIndex;
    std::vector<size_t> m_malformed;
    size_t m_keys = 0;
    bool m_incomplete = false;
};

} // namespace Toolkit

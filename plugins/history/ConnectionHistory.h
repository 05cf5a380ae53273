#pragma once
// The sessions the user was connected, oldest first, kept in the file
// "history" under the state directory: one tab-separated line per session,
// the whole file replaced at once on every change. A line that cannot be
// read is logged and left out; when the file cannot be written the entries
// stay in memory and the failure is logged once.
#include "Toolkit/TString.h"

#include <cstdint>
#include <vector>

namespace historyplugin {

struct HistoryEntry {
    TString<wchar_t> start; // local time, "2026-03-14 08:30:00"
    uint64_t durationSeconds = 0;
    uint64_t bytesSent = 0;
    uint64_t bytesReceived = 0;
    TString<wchar_t> device;

    uint64_t Volume() const { return bytesSent + bytesReceived; }
    bool operator==(const HistoryEntry&) const = default;
};

class ConnectionHistory {
public:
    static constexpr const char* c_fileName = "history";

    // Reads the file in `directory`, if there is one.
    explicit ConnectionHistory(const TString<char>& directory);

    // Keeps the entry and rewrites the file; false when the file could not
    // be written (the entry is kept all the same).
    bool Append(const HistoryEntry& entry);

    const std::vector<HistoryEntry>& Entries() const { return m_entries; }
    const TString<char>& Directory() const { return m_directory; }
    TString<char> Path() const;

    // One line of the file, and back; false for a line that is not one,
    // with the cause.
    static TString<char> FormatLine(const HistoryEntry& entry);
    static bool ParseLine(const TString<char>& line, HistoryEntry& entry, const char*& cause);

private:
    void load();
    bool save();

    TString<char> m_directory;
    std::vector<HistoryEntry> m_entries;
    // The failure to write was logged; it is not logged again.
    bool m_writeFailureLogged = false;
};

} // namespace historyplugin

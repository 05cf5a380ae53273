#pragma once
// The connections the user made, one entry per session, kept in a small
// text file under the user's state folder so that they survive a restart.
// The file is replaced whole on each change (written beside it, then
// renamed over it), so a crash leaves the old file or the new one, never a
// mix. A file that cannot be read or written costs one log entry, not the
// entries already kept: unreadable lines are set aside with the old file,
// and entries that could not be saved are saved with the next one.
#include "Toolkit/TString.h"

#include <cstdint>
#include <vector>

namespace history {

class ConnectionHistory {
public:
    struct Entry {
        int64_t start = 0;        // seconds since 1970, UTC
        uint64_t durationMs = 0;
        uint64_t sent = 0;        // bytes
        uint64_t received = 0;
        bool operator==(const Entry&) const = default;
    };

    // Reads the file at once.
    explicit ConnectionHistory(TString<char> path);

    // The file under the application's state folder.
    static TString<char> DefaultPath();

    const std::vector<Entry>& Entries() const { return m_entries; }
    // Adds the entry and saves; false when the file could not be written
    // (the entry is kept and saved with the next one).
    bool Add(const Entry& entry);

private:
    void load();
    bool save();

    const TString<char> m_path;
    std::vector<Entry> m_entries;
    bool m_saveFailed = false; // logged once until a save works again
};

} // namespace history

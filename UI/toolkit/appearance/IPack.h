#pragma once
#include "module/Export.h"
// One appearance pack, a zip archive or a directory holding the same tree:
// description files at the top, images under "graphics", language files
// under one "strings.<culture>" folder each. Entry names are relative to the
// pack and use "/" ("graphics/logo.png").
//
// A pack only reads: what it reads goes up to the caches and the string
// table, and nothing calls back into it. Every entry is read through one
// bounded, chunked path (ReadEntry, ReadLines), so the limits on what one
// entry and one line may hold (PackLimits) are checked in one place.
#include "Toolkit/TString.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace UIKit {

class UIKIT_API IPack {
public:
    // The bytes of one open entry, read in chunks.
    class Entry {
    public:
        virtual ~Entry() = default;
        // Up to size bytes; 0 at the end of the entry, -1 on a read error.
        virtual long long Read(char* buffer, size_t size) = 0;
    };

    // Receives each line with its 1-based number; false stops the file.
    using LineVisitor = std::function<bool(size_t lineNumber, const TString<wchar_t>& line)>;

    virtual ~IPack() = default;

    // A zip pack when path is a zip archive, a directory pack when it is a
    // directory, null (logged) when it is neither or the archive cannot be
    // used.
    static std::unique_ptr<IPack> Open(const TString<wchar_t>& path);

    // The full path of the pack, as it was opened.
    virtual const TString<wchar_t>& GetPath() const = 0;
    virtual bool IsArchive() const = 0;
    // The top-level folders matching the pattern, without a trailing "/",
    // in name order; false (logged) when the pack cannot be listed.
    virtual bool ListFolders(const TString<wchar_t>& pattern, std::vector<TString<wchar_t>>& names) const = 0;
    // The language files of a folder as entry names, in the order listed;
    // false when the folder cannot be listed.
    virtual bool ListFiles(const TString<wchar_t>& folder, std::vector<TString<wchar_t>>& names) const = 0;
    // The entry names of the files matching a pattern anywhere in the pack:
    // 1 when some were found, 0 when none, -1 when the pack cannot search.
    virtual int FindFiles(const TString<wchar_t>& pattern, std::vector<TString<wchar_t>>& names) const = 0;
    // One file entry, or null when it is missing, outside the pack or
    // cannot be opened.
    virtual std::unique_ptr<Entry> OpenEntry(const TString<wchar_t>& name) const = 0;

    // The whole entry; false (bytes empty) when it is missing, cannot be
    // read or holds more than the entry limit (reported).
    bool ReadEntry(const TString<wchar_t>& name, std::vector<unsigned char>& bytes) const;
    // The entry's lines, UTF-8 decoded, ending at LF, CR LF or a lone CR.
    // A line longer than the line limit is reported and skipped; reading
    // stops, reported, past the entry limit. False when the entry cannot be
    // opened.
    bool ReadLines(const TString<wchar_t>& name, const LineVisitor& visit) const;

private:
    // The next chunk of an entry, counted into total; -1 (reported) once
    // the entry holds more than the entry limit.
    long long readBounded(Entry& entry, const TString<wchar_t>& name, uint64_t& total, char* buffer,
                          size_t size) const;
};

} // namespace UIKit

#pragma once
// A file read or written as raw bytes through a POSIX descriptor.
//
// Opening a missing file for reading is not reported: it is how callers
// probe for optional files (Length() then answers -1). Every other failure
// to open, read or write is logged once with the path and the cause.
#include "Toolkit/TString.h"

#include <cstddef>
#include <vector>

namespace Toolkit {

class FSStream {
public:
    enum Mode : int {
        ModeRead = 0,      // an existing file, read only
        ModeWrite = 1,     // created or emptied, write only
        ModeAppend = 2,    // created when missing, every write goes to the end
        ModeReadWrite = 3, // an existing file, read and written from the start
    };

    FSStream(const TString<char>& path, int mode);
    FSStream(const TString<wchar_t>& path, int mode);
    ~FSStream();
    FSStream(const FSStream&) = delete;
    FSStream& operator=(const FSStream&) = delete;

    bool IsOpen() const { return m_fd >= 0; }
    void Close();
    const TString<char>& GetPath() const { return m_path; }
    // The errno of the failed open, 0 when the file is open.
    int GetError() const { return m_openError; }

    // Size in bytes; -1 when the file is not open.
    long long Length() const;
    // Reads up to size bytes (fewer only at the end of the file); 0 at the
    // end, -1 on an error.
    long long Read(void* buffer, size_t size);
    // Writes all size bytes; the count written, or -1 on an error.
    long long Write(const void* buffer, size_t size);
    // Appends everything from the current position to the end.
    bool ReadAll(std::vector<unsigned char>& bytes);
    // Moves to an offset from the start of the file.
    bool Seek(long long offset);
    long long Tell() const;
    // Pushes written data to the disk (fsync).
    bool Flush();

private:
    void open(int mode);
    void logIoError(const char* what, int error);

    TString<char> m_path;
    int m_fd = -1;
    int m_openError = 0;
};

} // namespace Toolkit

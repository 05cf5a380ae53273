#pragma once
// A log sink appending one line per entry to a file that only its owner may
// read (created 0600; an older, wider mode is narrowed). The file never
// grows past a size cap: before an entry would cross it, the file is renamed
// to "<path>.1" (replacing the previous one) and a fresh file is started, so
// at most two files of the cap's size exist.
#include "Toolkit/FileDescriptor.h"
#include "Toolkit/ILogger.h"

#include <string_view>

namespace Toolkit {

class LogFileSink : public ILogSink {
public:
    LogFileSink(const TString<char>& path, size_t maxBytes);
    // False when the file could not be opened; the reason is in Error().
    bool IsOpen() const { return m_file.IsValid(); }
    const std::string& Error() const { return m_error; }

    void Write(const LogEntry& entry) override;

private:
    bool open();
    void rotate();
    void append(std::string_view bytes);

    TString<char> m_path;
    size_t m_maxBytes;
    FileDescriptor m_file;
    size_t m_size = 0;
    std::string m_error;
};

} // namespace Toolkit

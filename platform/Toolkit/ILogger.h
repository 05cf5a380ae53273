#pragma once
// The suite's logger. Every entry has one shape: severity, time, source
// line, function, message. Entries are built with stream operators:
//
//     TK_LOG(Toolkit::LogError) << "cannot open " << path;
//
// and handed to the logger's sinks when the statement ends.
#include "Toolkit/Mutex.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

#include <atomic>
#include <cstdint>
#include <sstream>
#include <vector>

namespace Toolkit {

enum LogSeverity : int {
    LogInfo = 0,  // what happened, for whoever reads the log
    LogError = 1, // something failed and was skipped or refused
};

struct LogEntry {
    int severity = LogInfo;
    TString<wchar_t> time; // local wall-clock time, as ILogger::GetTime()
    const char* file = "";
    int line = 0;
    const char* function = "";
    TString<wchar_t> message;
};

// Where entries go. Sinks are called under the logger's lock, from any
// thread, and must not log themselves.
class ILogSink {
public:
    virtual ~ILogSink() = default;
    virtual void Write(const LogEntry& entry) = 0;
};

class ILogger {
public:
    // The separators of the one-line form of an entry:
    // severity TOKEN1 time TOKEN2 file:line function TOKEN3 message
    static const wchar_t* const c_strLogToken1;
    static const wchar_t* const c_strLogToken2;
    static const wchar_t* const c_strLogToken3;

    static ILogger& Instance();
    static TString<wchar_t> GetTime();
    static TString<wchar_t> Format(const LogEntry& entry);

    void AddSink(smart_ptr<ILogSink> sink);
    void RemoveSink(const smart_ptr<ILogSink>& sink);
    // Replaces the default stderr sink (tests and quiet hosts).
    void SetStderrEnabled(bool enabled);
    // Adds a sink appending to a file (LogFileSink: private to the user,
    // rotated at maxBytes); its directory is created. Null, with an entry on
    // the other sinks, when the file cannot be opened.
    static constexpr size_t c_maxLogFileBytes = 4 * 1024 * 1024;
    smart_ptr<ILogSink> AddFileSink(const TString<char>& path, size_t maxBytes = c_maxLogFileBytes);
    // The message as every sink receives it: control characters written as
    // "\n", "\x1b", "\u0085" and the like, so no text can start a new
    // line or drive a terminal.
    static TString<wchar_t> Escape(std::wstring_view text);

    // Entries less severe than this are dropped.
    void SetMinimumSeverity(int severity);
    bool IsEnabled(int severity) const { return severity >= m_minimumSeverity; }

    void Write(const LogEntry& entry);

private:
    ILogger();
    Mutex m_lock;
    std::vector<smart_ptr<ILogSink>> m_sinks;
    smart_ptr<ILogSink> m_stderr;
    std::atomic<int> m_minimumSeverity{LogInfo};
};

// Manipulator that sets an entry's severity mid-stream.
struct SetSeverity {
    explicit SetSeverity(int s) : value(s) {}
    int value;
};

// One entry under construction; written when destroyed.
class LogStream {
public:
    LogStream(int severity, const char* file, int line, const char* function);
    ~LogStream();
    LogStream(const LogStream&) = delete;
    LogStream& operator=(const LogStream&) = delete;

    LogStream& operator<<(SetSeverity s) { m_entry.severity = s.value; return *this; }
    LogStream& operator<<(const wchar_t* s);
    LogStream& operator<<(const std::wstring& s) { m_text << s; return *this; }
    LogStream& operator<<(std::wstring_view s) { m_text << s; return *this; }
    LogStream& operator<<(const char* s);
    LogStream& operator<<(const std::string& s);
    LogStream& operator<<(std::string_view s);
    LogStream& operator<<(wchar_t c) { m_text << c; return *this; }
    LogStream& operator<<(char c) { m_text << wchar_t(c); return *this; }
    LogStream& operator<<(bool b) { m_text << (b ? L"true" : L"false"); return *this; }
    LogStream& operator<<(const void* p) { m_text << p; return *this; }
    template <class N, class = std::enable_if_t<std::is_arithmetic_v<N>>>
    LogStream& operator<<(N n) { m_text << n; return *this; }

private:
    LogEntry m_entry;
    std::wostringstream m_text;
};

} // namespace Toolkit

#define TK_LOG(severity) ::Toolkit::LogStream((severity), __FILE__, __LINE__, __func__)

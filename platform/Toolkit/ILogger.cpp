#include "Toolkit/ILogger.h"

#include "Toolkit/LogFileSink.h"
#include "Toolkit/UTF8.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <filesystem>

namespace Toolkit {
namespace {

// C0 and C1 controls and DEL drive terminals; the Unicode line and paragraph
// separators and the bidirectional controls break or reorder a line.
bool needsEscape(wchar_t c)
{
    return c < 0x20 || (c >= 0x7F && c <= 0x9F) || c == 0x2028 || c == 0x2029 || (c >= 0x202A && c <= 0x202E) ||
           (c >= 0x2066 && c <= 0x2069);
}

TString<wchar_t> escapeCode(wchar_t c)
{
    wchar_t buffer[12];
    if (c < 0x80)
        std::swprintf(buffer, 12, L"\\x%02x", unsigned(c));
    else
        std::swprintf(buffer, 12, L"\\u%04x", unsigned(c));
    return buffer;
}

const char* baseName(const char* path)
{
    const char* slash = std::strrchr(path, '/');
    return slash ? slash + 1 : path;
}

class StderrSink : public ILogSink {
public:
    void Write(const LogEntry& entry) override
    {
        const auto line = UTF8::ToUTF8(ILogger::Format(entry));
        std::fprintf(stderr, "%s\n", line.c_str());
    }
};

} // namespace

const wchar_t* const ILogger::c_strLogToken1 = L" [";
const wchar_t* const ILogger::c_strLogToken2 = L"] ";
const wchar_t* const ILogger::c_strLogToken3 = L": ";

ILogger::ILogger() : m_stderr(make_smart<StderrSink>())
{
    m_sinks.push_back(m_stderr);
}

ILogger& ILogger::Instance()
{
    // Never destroyed: static destructors of other libraries may still log.
    static ILogger* instance = new ILogger();
    return *instance;
}

TString<wchar_t> ILogger::GetTime()
{
    using namespace std::chrono;
    const auto now = system_clock::now();
    const auto ms = duration_cast<milliseconds>(now.time_since_epoch()).count() % 1000;
    const std::time_t t = system_clock::to_time_t(now);
    std::tm tm{};
    localtime_r(&t, &tm);
    wchar_t buffer[40];
    std::swprintf(buffer, 40, L"%04d-%02d-%02d %02d:%02d:%02d.%03d", tm.tm_year + 1900, tm.tm_mon + 1,
                  tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec, int(ms));
    return buffer;
}

TString<wchar_t> ILogger::Format(const LogEntry& e)
{
    TString<wchar_t> out;
    out += e.severity >= LogError ? L"E" : L"I";
    out += c_strLogToken1;
    out += e.time;
    out += c_strLogToken2;
    out += UTF8::ToUNICODE(e.file);
    out += L":" + std::to_wstring(e.line) + L" ";
    out += UTF8::ToUNICODE(e.function);
    out += c_strLogToken3;
    out += e.message;
    return out;
}

void ILogger::AddSink(smart_ptr<ILogSink> sink)
{
    MutexLocker lock(m_lock);
    m_sinks.push_back(std::move(sink));
}

void ILogger::RemoveSink(const smart_ptr<ILogSink>& sink)
{
    MutexLocker lock(m_lock);
    std::erase(m_sinks, sink);
}

void ILogger::SetStderrEnabled(bool enabled)
{
    MutexLocker lock(m_lock);
    std::erase(m_sinks, m_stderr);
    if (enabled)
        m_sinks.insert(m_sinks.begin(), m_stderr);
}

smart_ptr<ILogSink> ILogger::AddFileSink(const TString<char>& path, size_t maxBytes)
{
    std::error_code ec;
    std::filesystem::create_directories(std::filesystem::path(static_cast<const std::string&>(path)).parent_path(), ec);
    auto sink = make_smart<LogFileSink>(path, maxBytes);
    if (!sink->IsOpen()) {
        TK_LOG(LogError) << "cannot open log file " << path << ": " << sink->Error();
        return {};
    }
    AddSink(sink);
    return sink;
}

void ILogger::SetMinimumSeverity(int severity)
{
    m_minimumSeverity = severity;
}

void ILogger::Write(const LogEntry& entry)
{
    if (!IsEnabled(entry.severity))
        return;
    // Messages carry names and text from files and other processes: escaped
    // here, no sink ever sees a character that starts a line or drives a terminal.
    LogEntry escaped = entry;
    escaped.message = Escape(entry.message);
    MutexLocker lock(m_lock);
    for (auto& sink : m_sinks)
        sink->Write(escaped);
}

TString<wchar_t> ILogger::Escape(std::wstring_view text)
{
    TString<wchar_t> out;
    out.reserve(text.size());
    for (const wchar_t c : text) {
        if (!needsEscape(c)) {
            out += c;
            continue;
        }
        switch (c) {
        case L'\n': out += L"\\n"; break;
        case L'\r': out += L"\\r"; break;
        case L'\t': out += L"\\t"; break;
        default: out += escapeCode(c);
        }
    }
    return out;
}

LogStream::LogStream(int severity, const char* file, int line, const char* function)
{
    m_entry.severity = severity;
    m_entry.file = baseName(file);
    m_entry.line = line;
    m_entry.function = function;
}

LogStream::~LogStream()
{
    auto& logger = ILogger::Instance();
    if (!logger.IsEnabled(m_entry.severity))
        return;
    m_entry.time = ILogger::GetTime();
    m_entry.message = m_text.str();
    logger.Write(m_entry);
}

LogStream& LogStream::operator<<(const wchar_t* s)
{
    m_text << (s ? s : L"(null)");
    return *this;
}

LogStream& LogStream::operator<<(const char* s)
{
    m_text << UTF8::ToUNICODE(s ? s : "(null)");
    return *this;
}

LogStream& LogStream::operator<<(const std::string& s)
{
    m_text << UTF8::ToUNICODE(s);
    return *this;
}

LogStream& LogStream::operator<<(std::string_view s)
{
    m_text << UTF8::ToUNICODE(s);
    return *this;
}

} // namespace Toolkit

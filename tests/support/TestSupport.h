#pragma once
// Helpers shared by every test binary.
#include "Toolkit/ILogger.h"
#include "Toolkit/TickCount.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace testsupport {

// Replaces Toolkit::GetTickCount for its lifetime. Toolkit::Thread::Sleep
// then does not pause: it advances this clock by the time asked for.
class FakeClock {
public:
    explicit FakeClock(uint64_t start = 1000);
    ~FakeClock();
    void Advance(uint64_t ms) { m_now += ms; }
    uint64_t Now() const { return m_now; }

private:
    std::atomic<uint64_t> m_now;
};

// Records every log entry written while it lives.
class LogCapture {
public:
    LogCapture();
    ~LogCapture();
    std::vector<Toolkit::LogEntry> Entries() const;
    // Entries whose message contains the text.
    size_t Count(const std::wstring& text) const;
    bool Contains(const std::wstring& text) const { return Count(text) > 0; }
    size_t Size() const { return Entries().size(); }
    std::wstring Dump() const;
    void Clear();

private:
    class Sink;
    Toolkit::smart_ptr<Sink> m_sink;
};

// A fresh directory, removed with everything in it at the end.
class TempDir {
public:
    TempDir();
    ~TempDir();
    const std::filesystem::path& Path() const { return m_path; }
    std::string Str() const { return m_path.string(); }
    // Writes a file below the directory (parents made) and returns its path.
    std::filesystem::path Write(const std::string& relative, const std::string& content) const;

private:
    std::filesystem::path m_path;
};

// Sets an environment variable for the lifetime of the object.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const std::string& value) : m_name(name)
    {
        if (const char* old = std::getenv(name))
            m_old = old;
        setenv(name, value.c_str(), 1);
    }
    ~ScopedEnv() { m_old ? (void)setenv(m_name, m_old->c_str(), 1) : (void)unsetenv(m_name); }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

private:
    const char* m_name;
    std::optional<std::string> m_old;
};

// Processes pending GUI events until the condition holds or the bound (in
// real milliseconds) passes; returns the condition's last value.
bool ProcessEventsUntil(const std::function<bool()>& condition, int boundMs = 5000);

// The whole content of a file, empty when it cannot be read.
std::string ReadFile(const std::filesystem::path& path);

// Whether the shared library at the path is mapped into this process.
bool IsMapped(const std::filesystem::path& path);

// The folder of the shared test data (tests/data in the source tree).
std::filesystem::path DataDir();

} // namespace testsupport

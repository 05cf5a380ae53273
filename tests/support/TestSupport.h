#pragma once
// Helpers shared by every test binary.
#include "Toolkit/ILogger.h"
#include "Toolkit/TickCount.h"

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
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
    void Set(uint64_t ms) { m_now = ms; }
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

// Processes pending GUI events until the condition holds or the bound (in
// real milliseconds) passes; returns the condition's last value.
bool ProcessEventsUntil(const std::function<bool()>& condition, int boundMs = 5000);

// Runs the function on the GUI thread and waits for it (GUI binaries only).
void RunOnGuiThread(const std::function<void()>& function);

// The folder of the shared test data (tests/data in the source tree).
std::filesystem::path DataDir();

} // namespace testsupport

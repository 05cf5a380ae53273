#include "TestSupport.h"

#include "Toolkit/Mutex.h"

#include <wx/app.h>
#include <wx/evtloop.h>

#include <dlfcn.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <random>
#include <thread>

namespace testsupport {

FakeClock::FakeClock(uint64_t start) : m_now(start)
{
    Toolkit::SetTickSource([this] { return m_now.load(); });
    Toolkit::SetSleepHandler([this](unsigned ms) { m_now += ms; });
}

FakeClock::~FakeClock()
{
    Toolkit::SetSleepHandler({});
    Toolkit::SetTickSource({});
}

class LogCapture::Sink : public Toolkit::ILogSink {
public:
    void Write(const Toolkit::LogEntry& entry) override
    {
        Toolkit::MutexLocker lock(m_lock);
        m_entries.push_back(entry);
    }
    mutable Toolkit::Mutex m_lock;
    std::vector<Toolkit::LogEntry> m_entries;
};

LogCapture::LogCapture() : m_sink(Toolkit::make_smart<Sink>())
{
    Toolkit::ILogger::Instance().AddSink(m_sink);
}

LogCapture::~LogCapture()
{
    Toolkit::ILogger::Instance().RemoveSink(m_sink);
}

std::vector<Toolkit::LogEntry> LogCapture::Entries() const
{
    Toolkit::MutexLocker lock(m_sink->m_lock);
    return m_sink->m_entries;
}

size_t LogCapture::Count(const std::wstring& text) const
{
    size_t n = 0;
    for (const auto& e : Entries())
        n += e.message.find(text) != std::wstring::npos;
    return n;
}

std::wstring LogCapture::Dump() const
{
    std::wstring out;
    for (const auto& e : Entries())
        out += Toolkit::ILogger::Format(e) + L"\n";
    return out;
}

void LogCapture::Clear()
{
    Toolkit::MutexLocker lock(m_sink->m_lock);
    m_sink->m_entries.clear();
}

TempDir::TempDir()
{
    std::random_device rd;
    const auto base = std::filesystem::temp_directory_path();
    do {
        m_path = base / ("uikit-test-" + std::to_string(rd()));
    } while (std::filesystem::exists(m_path));
    std::filesystem::create_directories(m_path);
}

TempDir::~TempDir()
{
    std::error_code ec;
    std::filesystem::remove_all(m_path, ec);
}

std::filesystem::path TempDir::Write(const std::string& relative, const std::string& content) const
{
    const auto path = m_path / relative;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

bool ProcessEventsUntil(const std::function<bool()>& condition, int boundMs)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(boundMs);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline)
            return condition();
        if (wxTheApp) {
            wxTheApp->ProcessPendingEvents();
            if (auto* loop = wxEventLoopBase::GetActive())
                loop->YieldFor(wxEVT_CATEGORY_ALL);
            else
                wxTheApp->Yield(true);
        }
        std::this_thread::yield();
    }
    return true;
}

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

bool IsMapped(const std::filesystem::path& path)
{
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle)
        dlclose(handle);
    return handle != nullptr;
}

std::filesystem::path DataDir()
{
    return std::filesystem::path(UIKIT_TEST_DATA_DIR);
}

} // namespace testsupport

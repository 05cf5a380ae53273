#include "Toolkit/Thread.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/TickCount.h"

#include <chrono>
#include <exception>
#include <system_error>

namespace Toolkit {
namespace {

// Captured while the library is loaded, which happens on the main thread.
const std::thread::id s_mainThread = std::this_thread::get_id();

} // namespace

Thread::~Thread()
{
    if (!m_thread.joinable())
        return;
    if (m_thread.get_id() == std::this_thread::get_id()) {
        // A body that destroys its own object cannot wait for itself.
        TK_LOG(LogError) << "thread object destroyed by its own body; the thread is detached";
        m_thread.detach();
        return;
    }
    m_thread.join();
}

bool Thread::Start()
{
    if (IsRunning()) {
        TK_LOG(LogError) << "thread already running, not started again";
        return false;
    }
    if (m_thread.joinable()) {
        if (m_thread.get_id() == std::this_thread::get_id()) {
            TK_LOG(LogError) << "thread cannot restart itself from its own body";
            return false;
        }
        m_thread.join(); // the previous run has ended; collect it
    }
    m_running.store(true, std::memory_order_release);
    try {
        m_thread = std::thread(&Thread::body, this);
    } catch (const std::system_error& e) {
        m_running.store(false, std::memory_order_release);
        TK_LOG(LogError) << "cannot create thread: " << e.what();
        return false;
    }
    return true;
}

bool Thread::Join()
{
    if (!m_thread.joinable())
        return false;
    if (m_thread.get_id() == std::this_thread::get_id()) {
        TK_LOG(LogError) << "thread cannot join itself";
        return false;
    }
    m_thread.join();
    return true;
}

void Thread::body()
{
    try {
        Run();
    } catch (const std::exception& e) {
        TK_LOG(LogError) << "thread body ended by exception: " << e.what();
    } catch (...) {
        TK_LOG(LogError) << "thread body ended by unknown exception";
    }
    m_running.store(false, std::memory_order_release);
}

bool Thread::IsMainThread()
{
    return std::this_thread::get_id() == s_mainThread;
}

void Thread::Sleep(unsigned ms)
{
    // A test's fake clock stands in for the pause (see SetSleepHandler). The
    // handler is copied out first so it runs without the clock's lock held.
    if (const auto handler = GetSleepHandler()) {
        handler(ms);
        return;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(ms));
}

} // namespace Toolkit

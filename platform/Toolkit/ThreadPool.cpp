#include "Toolkit/ThreadPool.h"

#include "Toolkit/ILogger.h"

#include <chrono>
#include <cstdlib>
#include <cxxabi.h>
#include <exception>
#include <memory>
#include <system_error>
#include <typeinfo>

namespace Toolkit {
namespace {

// The operation's class name, so that a log entry says which work failed.
std::string typeName(const BackgroundOperation& operation)
{
    const char* mangled = typeid(operation).name();
    int status = 0;
    std::unique_ptr<char, void (*)(void*)> demangled(abi::__cxa_demangle(mangled, nullptr, nullptr, &status),
                                                     std::free);
    return status == 0 && demangled ? std::string(demangled.get()) : std::string(mangled);
}

// The pool whose operation the current thread is running, if any.
thread_local const ThreadPool* t_currentPool = nullptr;

} // namespace

ThreadPool& ThreadPool::Instance()
{
    // Never destroyed: operations may still be queued from static destructors.
    static ThreadPool* instance = new ThreadPool();
    return *instance;
}

ThreadPool::ThreadPool(unsigned workers) : m_workerCount(workers ? workers : 1) {}

ThreadPool::~ThreadPool()
{
    Shutdown();
}

bool ThreadPool::AddOperation(smart_ptr<BackgroundOperation> operation)
{
    if (!operation) {
        TK_LOG(LogError) << "null background operation not queued";
        return false;
    }
    std::lock_guard lock(m_mutex);
    if (m_workers.empty() && !startWorkersLocked())
        return false;
    m_queue.push_back(std::move(operation));
    m_queued.notify_one();
    return true;
}

bool ThreadPool::startWorkersLocked()
{
    try {
        for (unsigned i = 0; i < m_workerCount; ++i)
            m_workers.emplace_back(&ThreadPool::workerLoop, this, m_epoch);
    } catch (const std::system_error& e) {
        TK_LOG(LogError) << "thread pool cannot start its workers: " << e.what();
        if (m_workers.empty())
            return false;
    }
    return true;
}

bool ThreadPool::WaitUntilIdle(unsigned timeoutMs)
{
    std::unique_lock lock(m_mutex);
    const auto idle = [this] { return m_queue.empty() && m_busy == 0; };
    if (timeoutMs == EventObject::c_infinite) {
        m_idle.wait(lock, idle);
        return true;
    }
    return m_idle.wait_for(lock, std::chrono::milliseconds(timeoutMs), idle);
}

void ThreadPool::Shutdown()
{
    if (t_currentPool == this) {
        // A worker cannot wait for itself to end.
        TK_LOG(LogError) << "thread pool shutdown refused from one of its own operations";
        return;
    }
    std::lock_guard shutdownLock(m_shutdownMutex);
    std::vector<std::thread> workers;
    {
        std::lock_guard lock(m_mutex);
        ++m_epoch;
        m_queued.notify_all();
        workers.swap(m_workers);
    }
    for (auto& worker : workers)
        worker.join();
}

void ThreadPool::workerLoop(uint64_t epoch)
{
    t_currentPool = this;
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_queued.wait(lock, [&] { return epoch != m_epoch || !m_queue.empty(); });
        if (m_queue.empty())
            return; // shut down, and everything queued has been taken
        auto operation = std::move(m_queue.front());
        m_queue.pop_front();
        ++m_busy;
        lock.unlock();
        runGuarded(*operation);
        operation.reset(); // the operation dies on the pool, outside the lock
        lock.lock();
        --m_busy;
        if (m_queue.empty() && m_busy == 0)
            m_idle.notify_all();
    }
}

void ThreadPool::runGuarded(BackgroundOperation& operation)
{
    try {
        operation.DoOperation();
    } catch (const std::exception& e) {
        TK_LOG(LogError) << "background operation " << typeName(operation) << " failed: " << e.what();
    } catch (...) {
        TK_LOG(LogError) << "background operation " << typeName(operation) << " failed with an unknown exception";
    }
}

} // namespace Toolkit


#pragma once
// A few worker threads that run BackgroundOperations in the order they were
// queued. Instance() is the process's pool; other pools can be made for
// separate work. An operation that throws is logged and the worker goes on.
//
// Workers start with the first queued operation and end at Shutdown() or
// destruction; a pool that was shut down starts again on the next operation.
// The process pool is never destroyed, so hosts call Shutdown() before they
// unload what the queued operations use.
#include "Toolkit/BackgroundOperation.h"
#include "Toolkit/EventObject.h"
#include "Toolkit/smart_ptr.h"

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

namespace Toolkit {

class ThreadPool {
public:
    static constexpr unsigned c_defaultWorkers = 2;

    static ThreadPool& Instance();

    explicit ThreadPool(unsigned workers = c_defaultWorkers);
    ~ThreadPool();
    ThreadPool(const ThreadPool&) = delete;
    ThreadPool& operator=(const ThreadPool&) = delete;

    // Queues the operation; false (logged) for a null operation or when the
    // workers cannot be started.
    bool AddOperation(smart_ptr<BackgroundOperation> operation);
    // Waits until no operation is queued or running; false when the time
    // runs out first.
    bool WaitUntilIdle(unsigned timeoutMs = EventObject::c_infinite);
    // Runs what is queued, then ends the workers and waits for them.
    // Refused (logged) from one of the pool's own operations.
    void Shutdown();

private:
    bool startWorkersLocked();
    void workerLoop(uint64_t epoch);
    static void runGuarded(BackgroundOperation& operation);

    const unsigned m_workerCount;
    std::mutex m_mutex;
    std::condition_variable m_queued;
    std::condition_variable m_idle;
    std::deque<smart_ptr<BackgroundOperation>> m_queue;
    unsigned m_busy = 0;
    // Each Shutdown() starts a new epoch; workers of an older one leave once
    // the queue is empty, while a restarted pool has workers of the new one.
    uint64_t m_epoch = 0;
    std::vector<std::thread> m_workers;
    // Serialises Shutdown() callers, so that only one joins the workers.
    std::mutex m_shutdownMutex;
};

} // namespace Toolkit

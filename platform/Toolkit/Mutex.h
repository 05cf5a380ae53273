#pragma once
// A re-entrant lock: the thread that holds it may lock it again.
#include <mutex>

namespace Toolkit {

class Mutex {
public:
    void Lock() { m_mutex.lock(); }
    bool TryLock() { return m_mutex.try_lock(); }
    void Unlock() { m_mutex.unlock(); }

    // BasicLockable, so std::lock_guard and std::scoped_lock work too.
    void lock() { Lock(); }
    bool try_lock() { return TryLock(); }
    void unlock() { Unlock(); }

private:
    std::recursive_mutex m_mutex;
};

// Holds a Mutex for the lifetime of the scope.
class MutexLocker {
public:
    explicit MutexLocker(Mutex& m) : m_mutex(m) { m_mutex.Lock(); }
    ~MutexLocker() { m_mutex.Unlock(); }
    MutexLocker(const MutexLocker&) = delete;
    MutexLocker& operator=(const MutexLocker&) = delete;

private:
    Mutex& m_mutex;
};

} // namespace Toolkit

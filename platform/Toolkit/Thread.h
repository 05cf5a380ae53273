#pragma once
// A thread object whose body is a virtual operation. Subclasses override
// Run(); Start() launches it, Join() waits for it to end. A thread can be
// started again once its previous run has ended.
//
// The destructor joins a running body, but by then the derived part of the
// object is already gone: a subclass whose body uses its own members must
// make the body end and Join() in its own destructor.
//
// Start, Join and the destructor belong to the owner's thread; IsRunning may
// be asked from any thread.
#include <atomic>
#include <thread>

namespace Toolkit {

class Thread {
public:
    Thread() = default;
    virtual ~Thread();
    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;

    // Launches the body on a new thread. False, with a log entry, when the
    // body is still running or the system refuses a new thread.
    bool Start();
    // Waits until the body has ended. False when there is nothing to wait
    // for, or when called from the body itself (which would never return).
    bool Join();
    // True from Start() until the body returns.
    bool IsRunning() const { return m_running.load(std::memory_order_acquire); }

    // True on the thread that loaded the library (the application's main
    // thread, which is also the GUI thread).
    static bool IsMainThread();
    static void Sleep(unsigned ms);

protected:
    // The body. Exceptions that escape it are logged and end the thread.
    virtual void Run() = 0;

private:
    void body();

    std::thread m_thread;
    std::atomic<bool> m_running{false};
};

} // namespace Toolkit

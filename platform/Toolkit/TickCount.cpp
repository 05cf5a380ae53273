#include "Toolkit/TickCount.h"

#include <chrono>
#include <mutex>

namespace Toolkit {
namespace {

std::mutex& sourceLock()
{
    static std::mutex m;
    return m;
}
std::function<uint64_t()>& source()
{
    static std::function<uint64_t()> s;
    return s;
}
std::function<void(unsigned)>& sleepHandler()
{
    static std::function<void(unsigned)> h;
    return h;
}

} // namespace

uint64_t GetTickCount()
{
    {
        std::lock_guard lock(sourceLock());
        if (source())
            return source()();
    }
    using namespace std::chrono;
    return uint64_t(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

void SetTickSource(std::function<uint64_t()> s)
{
    std::lock_guard lock(sourceLock());
    source() = std::move(s);
}

void SetSleepHandler(std::function<void(unsigned)> handler)
{
    std::lock_guard lock(sourceLock());
    sleepHandler() = std::move(handler);
}

std::function<void(unsigned)> GetSleepHandler()
{
    std::lock_guard lock(sourceLock());
    return sleepHandler();
}

} // namespace Toolkit

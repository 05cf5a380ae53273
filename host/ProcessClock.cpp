#include "ProcessClock.h"

#include <chrono>
#include <ctime>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>

namespace host {
namespace {

// Read while the program's static objects are built: only a fall-back, as
// the dynamic loader has already spent its time by then.
const std::chrono::steady_clock::time_point c_earlyStamp = std::chrono::steady_clock::now();

// The kernel's record of the process start (field 22 of /proc/self/stat,
// in clock ticks since boot) counts what a stamp taken in the program
// misses: exec, loading and relocating wx and GTK, and their static
// constructors. Its unit is a clock tick (10 ms), so the figure may be up
// to a tick high. -1 when the record cannot be read.
double fromKernelRecord()
{
    std::ifstream stat("/proc/self/stat");
    std::string line;
    if (!std::getline(stat, line))
        return -1;
    // The command name in parentheses may hold spaces: count after it.
    std::istringstream fields(line.substr(line.rfind(')') + 2));
    std::string field;
    for (int index = 3; index <= 22 && fields >> field; ++index)
        if (index == 22) {
            timespec now{};
            clock_gettime(CLOCK_BOOTTIME, &now);
            const double started = std::stod(field) * 1000.0 / double(sysconf(_SC_CLK_TCK));
            return double(now.tv_sec) * 1000.0 + double(now.tv_nsec) / 1e6 - started;
        }
    return -1;
}

} // namespace

double MillisecondsSinceProcessStart()
{
    const double early =
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - c_earlyStamp).count();
    const double kernel = fromKernelRecord();
    // A record that predates the in-program stamp by more than a minute
    // belongs to a clock other than ours (a container's, say).
    return kernel >= early && kernel < early + 60000.0 ? kernel : early;
}

double ProcessorMilliseconds()
{
    timespec used{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    return double(used.tv_sec) * 1000.0 + double(used.tv_nsec) / 1e6;
}

} // namespace host

// A second process for the IPC and single-instance tests.
//
//   ipc_peer send  RUNTIME_DIR APP_NAME CHANNEL COMMAND   exit 0 when delivered, 1 otherwise
//   ipc_peer claim RUNTIME_DIR APP_NAME                   exit 0 when claimed, 3 when already running
//   ipc_peer hold  RUNTIME_DIR APP_NAME                   prints "claimed" or "running", then
//                                                         holds the claim until killed (60 s at most)
#include "Toolkit/ILogger.h"
#include "Toolkit/IPCClient.h"
#include "Toolkit/PathManager.h"
#include "Toolkit/SingleApplicationInstance.h"
#include "Toolkit/UTF8.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace {

int usage()
{
    std::fprintf(stderr, "usage: ipc_peer send|claim|hold RUNTIME_DIR APP_NAME [CHANNEL COMMAND]\n");
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 4)
        return usage();
    // Quiet like the test binaries, unless the tests' log is asked for.
    Toolkit::ILogger::Instance().SetStderrEnabled(std::getenv("UIKIT_TEST_LOG") != nullptr);
    auto& paths = Toolkit::PathManager::Instance();
    paths.SetRuntimeDir(argv[2]);
    paths.SetApplicationName(argv[3]);
    const std::string mode = argv[1];

    if (mode == "send" && argc == 6)
        return Toolkit::IPCClient::Connect(Toolkit::UTF8::ToUNICODE(argv[4]), Toolkit::UTF8::ToUNICODE(argv[5])) ? 0
                                                                                                                 : 1;

    if (mode == "claim" && argc == 4)
        return Toolkit::SingleApplicationInstance().IsAlreadyRunning() ? 3 : 0;

    if (mode == "hold" && argc == 4) {
        Toolkit::SingleApplicationInstance instance;
        std::printf("%s\n", instance.IsAlreadyRunning() ? "running" : "claimed");
        std::fflush(stdout);
        ::alarm(60); // never outlive a test that forgot to kill us
        for (;;)
            ::pause();
    }
    return usage();
}

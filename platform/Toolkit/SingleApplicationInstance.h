#pragma once
// The single-instance claim of an application: an exclusive flock on a lock
// file named after the application in its runtime directory. The first
// process to take it is the running instance; later ones see
// IsAlreadyRunning(). The system drops the claim when the holder's process
// ends, however it ends, so a crash never leaves a stale claim.
#include "Toolkit/FileDescriptor.h"
#include "Toolkit/TString.h"

namespace Toolkit {

class SingleApplicationInstance {
public:
    // The process's claim for the application (PathManager's name), taken
    // on first use and held until the process ends.
    static SingleApplicationInstance& Instance();

    // Tries to take the claim named `name` (empty: the application's name).
    explicit SingleApplicationInstance(const TString<wchar_t>& name = TString<wchar_t>());
    SingleApplicationInstance(const SingleApplicationInstance&) = delete;
    SingleApplicationInstance& operator=(const SingleApplicationInstance&) = delete;

    // True when another process holds the claim. When the lock file cannot
    // be used at all (logged), the process counts as the only instance.
    bool IsAlreadyRunning() const { return m_alreadyRunning; }
    bool HoldsClaim() const { return m_lockFile.IsValid(); }
    const TString<char>& GetLockPath() const { return m_path; }

private:
    void claim();

    TString<char> m_path;
    FileDescriptor m_lockFile; // open while this process holds the claim
    bool m_alreadyRunning = false;
};

} // namespace Toolkit

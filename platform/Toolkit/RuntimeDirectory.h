#pragma once
// The application's runtime directory (PathManager::GetRuntimeDir), where
// the IPC socket and the single-instance lock file live. It is private to
// the user: created with mode 0700, and refused when another user owns it.
#include "Toolkit/TString.h"

namespace Toolkit {

class RuntimeDirectory {
public:
    // Makes sure the directory exists and is private, then returns the path
    // of the named file in it. Empty, with a log entry, when it cannot.
    static TString<char> PrepareFile(const TString<char>& fileName);
    // The path of the named file, without touching the disk.
    static TString<char> FilePath(const TString<char>& fileName);
    // A file name made from a channel or application name: the empty name
    // stands for the application's, and path separators become '_'.
    static TString<char> FileName(const TString<wchar_t>& name, const char* suffix);
};

} // namespace Toolkit

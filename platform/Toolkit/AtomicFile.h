#pragma once
// Replaces a file's content as one step: the bytes go to a temporary file
// in the same directory, which is flushed to disk and then renamed over
// the file. Readers see the old content or the new one, never a mix, and
// a crash before the rename leaves the old file as it was.
#include "Toolkit/TString.h"

#include <functional>
#include <string_view>

namespace Toolkit {

class AtomicFile {
public:
    // A new file is created readable by its owner only; an existing file
    // keeps its permissions. False (logged) on any failure.
    static bool Write(const TString<char>& path, std::string_view bytes);

    // Called once the temporary file is complete, just before the rename.
    // Returning false abandons the write there, temporary file left in
    // place, exactly as a crash at that point would (tests use it).
    using BeforeRenameHook = std::function<bool(const TString<char>& tempPath)>;
    static void SetBeforeRenameHook(BeforeRenameHook hook);
};

} // namespace Toolkit

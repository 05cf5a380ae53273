#pragma once
// Sets an unreadable preferences file aside instead of deleting it, so the
// user can still recover it by hand. Each file set aside gets a name of its
// own ("<file>.corrupt-<n>", n growing), so a later bad file never
// overwrites an earlier one; only the newest few are kept.
#include "Toolkit/TString.h"

namespace Preferences {

class CorruptFiles {
public:
    static constexpr size_t c_kept = 3;

    // Renames `path` to its next free name. Returns that name, or empty when
    // the file could not be moved (errno tells why). Older files set aside
    // beyond the newest `kept` are removed.
    static TString<char> MoveAside(const TString<char>& path, size_t kept = c_kept);
};

} // namespace Preferences

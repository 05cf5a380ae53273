#pragma once
// Reads a small file whole, with a bound on the bytes read, refusing
// anything that is not a regular file (FIFO, device, socket, directory)
// before opening it for reading: such a file could block the reader forever
// or never end. The path is checked once more on the opened descriptor, so
// a file swapped in between the two checks is refused too.
#include "Toolkit/TString.h"

#include <string>

namespace Toolkit {

class RegularFile {
public:
    enum class Result {
        Read,       // the whole file is in `bytes`
        Truncated,  // only its first maxBytes are (logged, naming the limit)
        Missing,    // nothing at the path (not logged)
        NotRegular, // not a regular file, not opened (logged)
        Failed,     // cannot be opened or read (logged)
    };

    static Result Read(const TString<char>& path, size_t maxBytes, std::string& bytes);
};

} // namespace Toolkit

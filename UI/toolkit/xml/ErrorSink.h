#pragma once
#include "module/Export.h"
// Where every problem found while reading an appearance pack, a plug-in item
// file or any other skin document goes: malformed XML, an unknown control
// class, a missing image, an undefined template or string key, a value that
// cannot be read. Each report is one line, "file:line: message", written to
// the log at error severity and then handed to the installed handler.
//
// The default handler writes the line on stderr, so a skin author sees it
// without opening the log. Tests and tools install their own handler to
// collect the reports; Install returns the previous one so they can restore
// it. Reports may come from any thread; the handler is called under a lock.
#include "Toolkit/TString.h"

#include <functional>
#include <string>

namespace UIKit {

struct UIKIT_API PackError {
    std::string file;    // as the pack names it ("dashboard.xml"), empty when unknown
    int line = 0;        // 1-based; 0 when the problem has no line
    std::string message; // what is wrong, in one sentence
    // "file:line: message", "file: message" without a line, or the message alone.
    std::string Format() const;
};

class UIKIT_API ErrorSink {
public:
    using Handler = std::function<void(const PackError&)>;

    static void Report(const std::string& file, int line, const std::string& message);
    static void Report(const PackError& error);
    // Replaces the handler (an empty one restores the stderr default) and
    // returns the one it replaces.
    static Handler Install(Handler handler);
    // The default handler: the formatted line on stderr.
    static void WriteToStderr(const PackError& error);
};

} // namespace UIKit

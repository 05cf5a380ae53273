#pragma once
#include "module/Export.h"
// A short, printable view of text read from a pack, for reports and log
// entries: the text of a broken file is never copied whole into the log,
// and none of its characters can end a log line or drive a terminal.
#include "Toolkit/TString.h"

#include <cstddef>
#include <string>

namespace UIKit {

class UIKIT_API TextExcerpt {
public:
    // The characters a report shows of one line.
    static constexpr size_t c_maxChars = 60;

    // The first maxChars characters of text, with control characters written
    // as escapes ("\n", "\t", "\x1b", "\\" for a backslash) and "..." when
    // the text was cut.
    static TString<wchar_t> Of(const TString<wchar_t>& text, size_t maxChars = c_maxChars);
    // An entry or file name for a report, escaped the same way and UTF-8
    // encoded; names are cut at c_maxNameChars.
    static std::string Name(const TString<wchar_t>& name);

    static constexpr size_t c_maxNameChars = 256;
};

} // namespace UIKit

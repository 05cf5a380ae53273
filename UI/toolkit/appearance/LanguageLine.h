#pragma once
#include "module/Export.h"
// One line of a language file, in the resource-script style:
//
//     // CULTURE fr Français        header: culture code and native name
//     STRINGTABLE / BEGIN / END      structure
//     // anything                    comment
//     LB_KEY   "text with "inner" quotes\nand a line break"
//
// A definition's key is the run of letters, digits and "_" right before the
// first quote (blanks may sit between them); its text runs to the last quote
// of the line, with each backslash-n turned into a line break (no other
// escape is read). Lines are read in one pass each, so that their time grows
// with their length only: language files come from downloaded packs.
#include "Toolkit/TString.h"

namespace UIKit {

class UIKIT_API LanguageLine {
public:
    enum Kind {
        Blank,      // empty line
        Definition, // key and text set
        Ignored,    // structure word or comment
        EmptyKey,   // a quoted text without a key before it
        NoMatch,    // anything else
    };

    static LanguageLine Parse(const TString<wchar_t>& line);
    // The native name of a "// CULTURE code name" header; false for any
    // other line.
    static bool ParseHeader(const TString<wchar_t>& line, TString<wchar_t>& nativeName);

    Kind kind = Blank;
    TString<char> key;
    TString<wchar_t> text;
};

} // namespace UIKit

#pragma once
#include "module/Export.h"
// One row of a navigation table ("Event" or "Shortcut" element): in this
// sequence and state, this control id runs this transition or fires this
// hot key. Empty fields are given meaning by the table that holds the row.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

#include <string>

namespace UIKit {

class XMLNode;

struct UIKIT_API EventDescriptor {
    explicit EventDescriptor(Toolkit::smart_ptr<XMLNode> node);

    TString<wchar_t> state;
    int id = -1;
    TString<wchar_t> sequence;
    TString<wchar_t> transition;
    TString<wchar_t> hotkey;

    // Where the row was read ("home.xml" and its line), so that a row that
    // fails when it is used can be reported against its file; empty and 0
    // for rows made in code.
    std::string file;
    int line = 0;
};

} // namespace UIKit

#pragma once
#include "module/Export.h"
// Where deeply nested elements close, learnt while the closing tag of one of
// their same-name ancestors was searched. Lazy parsing searches the closing
// tag of every element it defers; without this a chain of thousands of
// nested "Control" elements would rescan the rest of the text once per
// level. Only levels past kMinDepth are kept, so ordinary skins, which nest
// a few levels, never pay for it.
#include <cstddef>
#include <unordered_map>
#include <vector>

namespace UIKit {

class UIKIT_API XmlClosingTags {
public:
    static constexpr std::size_t kMinDepth = 16;

    void Reset();
    // The "<" of the closing tag of the element whose name starts at `name`
    // (one byte after its "<"), or null when not learnt.
    const char* Find(const char* name) const;
    void Add(const char* name, const char* closing) { m_closing[name] = closing; }
    // Working stack of the names of open deep elements during one search.
    std::vector<const char*>& Open() { return m_open; }

private:
    std::unordered_map<const char*, const char*> m_closing;
    std::vector<const char*> m_open;
};

} // namespace UIKit

#include "xml/XmlClosingTags.h"

namespace UIKit {

void XmlClosingTags::Reset()
{
    m_closing.clear();
    m_open.clear();
}

const char* XmlClosingTags::Find(const char* name) const
{
    const auto it = m_closing.find(name);
    return it == m_closing.end() ? nullptr : it->second;
}

} // namespace UIKit

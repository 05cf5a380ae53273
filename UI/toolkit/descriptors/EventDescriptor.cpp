#include "descriptors/EventDescriptor.h"

#include "xml/XMLLoader.h"
#include "xml/XMLNode.h"

#include <string>

namespace UIKit {

EventDescriptor::EventDescriptor(Toolkit::smart_ptr<XMLNode> node)
{
    XMLLoader loader(node);
    state = loader.ReadString("", "state");
    id = loader.ReadId("", "id");
    // Plug-ins may also number their own events directly.
    if (id == -1) {
        const auto text = loader.ReadString("", "id");
        if (!text.empty() && text.size() < 10 && text.find_first_not_of(L"0123456789") == TString<wchar_t>::npos)
            id = std::stoi(text);
    }
    sequence = loader.ReadString("", "sequence");
    transition = loader.ReadString("", "transition");
    hotkey = loader.ReadString("", "hotkey");
    if (node) {
        if (const auto& origin = node->GetOrigin())
            file = origin->file;
        line = node->GetLine();
    }
}

} // namespace UIKit

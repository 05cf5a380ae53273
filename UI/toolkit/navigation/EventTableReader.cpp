#include "navigation/EventTableReader.h"

#include "xml/XMLLoader.h"
#include "xml/XMLNode.h"

namespace UIKit {

EventTableRows EventTableReader::Read(Toolkit::smart_ptr<XMLNode> element, const TString<char>& rowName)
{
    EventTableRows table;
    if (!element)
        return table;
    XMLLoader loader(element);
    table.sequence = loader.ReadString("", "sequence");
    std::vector<Toolkit::smart_ptr<XMLNode>> nodes;
    loader.GetNodes(nodes, rowName);
    for (const auto& node : nodes)
        table.rows.push_back(Toolkit::make_smart<EventDescriptor>(node));
    return table;
}

} // namespace UIKit

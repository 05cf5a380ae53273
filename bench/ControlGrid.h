#pragma once
// The skin description of a container full of skinned buttons and labels,
// shared by the benchmarks that build many controls.
#include <wx/gdicmn.h>

#include <functional>
#include <sstream>
#include <string>

namespace bench {

// A `containerClass` element with `count` children, alternately buttons and
// labels, child i at cellOf(i); `selected` adds a selected-state image.
inline std::string ControlGrid(const std::string& containerClass, const std::string& bounds, int count,
                               const std::function<wxRect(int)>& cellOf, bool selected)
{
    std::ostringstream xml;
    xml << "<Control class=\"" << containerClass << "\" name=\"grid\" bounds=\"" << bounds << "\">";
    for (int i = 0; i < count; ++i) {
        const wxRect r = cellOf(i);
        const char* kind = i % 2 ? "StaticTextCtrl" : "ButtonCtrl";
        xml << "<Control class=\"" << kind << "\" name=\"c" << i << "\" bounds=\"" << r.x << ',' << r.y << ','
            << r.width << ',' << r.height << "\">"
            << R"(<Enabled margin="10,10,10,10">button_normal.png</Enabled>)"
            << R"(<Over margin="10,10,10,10">button_over.png</Over>)";
        if (selected)
            xml << R"(<Selected margin="10,10,10,10">button_selected.png</Selected>)";
        xml << R"(<Label>BT_CONNECT</Label><Font fore="255,255,255,255" ptsize="9"/></Control>)";
    }
    xml << "</Control>";
    return xml.str();
}

} // namespace bench

#pragma once
#include "module/Export.h"
// The symbolic id vocabulary of skin, event and plug-in descriptions, which
// the XML reader turns into numbers. The list itself is SymbolicIds.def.
#include <string_view>

namespace UIKit {

#define UIKIT_CONTROL_ID(name, value) name = value,
#define UIKIT_PLUGIN_ID(name, value)
enum ControlId : int {
#include "xml/SymbolicIds.def"
};
#undef UIKIT_CONTROL_ID
#undef UIKIT_PLUGIN_ID

#define UIKIT_CONTROL_ID(name, value)
#define UIKIT_PLUGIN_ID(name, value) name = value,
enum PluginId : int {
#include "xml/SymbolicIds.def"
};
#undef UIKIT_CONTROL_ID
#undef UIKIT_PLUGIN_ID

// The number of a symbolic id (exact, case-sensitive name), or -1.
UIKIT_API int LookupSymbolicId(std::string_view name);

// The name of an id, or an empty view when the number has none.
UIKIT_API std::string_view SymbolicIdName(int id);

} // namespace UIKit

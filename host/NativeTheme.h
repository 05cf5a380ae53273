#pragma once
// The theme of the native widgets inside the skinned window (text boxes,
// tooltips). The window draws itself from the pack; the desktop's theme
// would only add its own colours to those few widgets, and parsing it is
// the largest part of opening the first window.

namespace host {

// Makes GTK use the built-in small theme, unless the user has chosen one
// with GTK_THEME. Call before GTK starts.
void UseNativeTheme();

} // namespace host

#pragma once
// The library is built with hidden visibility: only what carries UIKIT_API
// is seen by the host and the plug-ins. Everything declared in the library's
// headers carries it; helpers that live only in .cpp files stay private, so
// the dynamic linker has fewer symbols to resolve and no plug-in can bind to
// them by accident.
#define UIKIT_API __attribute__((visibility("default")))

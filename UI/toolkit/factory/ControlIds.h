#pragma once
// The control and plug-in ids that descriptions, controls and event tables
// name. They are read by the XML reader, so the list lives with it; this
// header is what code above the reader includes.
#include "xml/SymbolicIds.h"

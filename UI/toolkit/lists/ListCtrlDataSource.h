#pragma once
#include "module/Export.h"
// The data source a list uses when nobody gives it one: the defaults of
// IDataSource, with the list's own row template.
#include "lists/IDataSource.h"

namespace UIKit {

class UIKIT_API ListCtrlDataSource : public IDataSource {
public:
    explicit ListCtrlDataSource(const TString<wchar_t>& templateName) : IDataSource(templateName) {}
};

} // namespace UIKit

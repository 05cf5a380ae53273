// Util: opening a web address without blocking the interface.
#include "util/Util.h"

#include "Toolkit/ThreadPool.h"
#include "app/OpenUrlOperation.h"

namespace UIKit {

void Util::OpenBrowserUrl(const TString<wchar_t>& url)
{
    Toolkit::ThreadPool::Instance().AddOperation(Toolkit::make_smart<OpenUrlOperation>(url));
}

} // namespace UIKit

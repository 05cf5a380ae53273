#pragma once
#include "module/Export.h"
// Opens a web address in the desktop's browser; runs on a pool thread so a
// slow browser start never blocks the interface.
#include "Toolkit/BackgroundOperation.h"
#include "Toolkit/TString.h"

namespace UIKit {

class UIKIT_API OpenUrlOperation : public Toolkit::BackgroundOperation {
public:
    explicit OpenUrlOperation(const TString<wchar_t>& url) : m_url(url) {}
    void DoOperation() override;
    const TString<wchar_t>& GetUrl() const { return m_url; }

private:
    TString<wchar_t> m_url;
};

} // namespace UIKit

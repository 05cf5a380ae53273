#pragma once
#include "module/Export.h"
// Decides what a screen's OK and Cancel mean and pushes events into the
// controls that listen to it (it is an event dispatcher). The public fields
// are filled by the host and the plug-ins; the library reads only the
// pending-changes key and value, which OK and Cancel hand to the dashboard.
#include "Toolkit/TString.h"
#include "lists/EventDispatcher.h"

#include <cstdint>

namespace UIKit {

class IDataSource;

class UIKIT_API IDelegate : public EventDispatcher {
public:
    IDelegate() = default;
    ~IDelegate() override = default;

    // Called by a screen on OK: the dashboard is told of the pending changes.
    virtual void doFlush();
    // Called by a screen on Cancel: the same report as doFlush, at another moment.
    virtual void doRollback();
    virtual void doMakeScreenAndDisplay(IDataSource*) {}

    TString<wchar_t> m_pendingKey;
    // Left unset on purpose: whoever configures the delegate sets it.
    int32_t m_pendingValue;
    TString<wchar_t> m_text1;
    TString<wchar_t> m_text2;
    TString<wchar_t> m_text3;
    TString<wchar_t> m_text4;
    bool m_enabled = true;

private:
    void reportPendingChanges();
};

} // namespace UIKit

#pragma once
#include "module/Export.h"
// The application object of the connection manager. It makes itself and the
// main dashboard window reachable from anywhere; the host derives from it.
#include "Toolkit/WxLogForwarder.h"
#include "Toolkit/smart_ptr.h"

#include <wx/app.h>

namespace UIKit {

class IDashboard;

class UIKIT_API App : public wxApp {
public:
    // The running application, set by OnInit and never cleared.
    static App* m_wxApp;
    // The main window; set by whoever creates it. The same pointer as
    // IDashboard::s_pCurrent, so that layers below the application see it.
    static IDashboard*& m_pDashboard;

    // Sends wx's own log messages to the suite's logger (unless the owner
    // set a bridge already): wx's default GUI target would otherwise show
    // them in a modal box, at the latest when the application exits.
    bool OnInit() override;
    int OnExit() override;
    // Left to right in every language: skinned controls sit at the pack's
    // coordinates, which a mirrored layout would flip. Answering here also
    // spares wx building its table of every known language when the first
    // window asks for the direction.
    wxLayoutDirection GetLayoutDirection() const override { return wxLayout_LeftToRight; }

    // The bridge from wx logging into the suite's logger; the owner may set
    // it, and it goes with the application.
    void SetLogForwarder(Toolkit::smart_ptr<Toolkit::WxLogForwarder> forwarder) { m_logForwarder = forwarder; }

private:
    Toolkit::smart_ptr<Toolkit::WxLogForwarder> m_logForwarder;
};

} // namespace UIKit

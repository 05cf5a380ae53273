#pragma once
// The history plug-in: keeps the connection history, records each session
// that ends, and contributes the history screen, its row class, the way to
// it from the home screen and a hot key (F4).
#include "ConnectionHistory.h"
#include "ConnectionRecorder.h"
#include "ScreenPlugin.h"

#include <wx/event.h>

namespace historyplugin {

class HistoryPlugin : public pluginsupport::ScreenPlugin {
public:
    HistoryPlugin();
    ~HistoryPlugin() override;

    // Registers the row class, then the screen; starts recording.
    bool Activate() override;
    bool Deactivate() override;
    void Hotkey(const TString<wchar_t>& name) override;

    // The history of the state directory in use. The host may point the
    // state directory elsewhere while it runs (tests, the tour): the
    // history is then read from the new place. GUI thread only.
    static ConnectionHistory& History();

private:
    // On the GUI thread: keeps the entry and shows it if the screen is up.
    static void record(const HistoryEntry& entry);
    void stopRecording();

    Toolkit::smart_ptr<ConnectionRecorder> m_recorder;
    // Carries entries from the devices' threads to the GUI thread; entries
    // still queued when the plug-in goes are dropped with it.
    wxEvtHandler m_gui;
};

} // namespace historyplugin

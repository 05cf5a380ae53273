#pragma once
#include "module/Export.h"
// Owns the notification popups: small skinned windows stacked in the
// bottom-right corner of the primary display, the newest on top. Requests
// come from any thread and are posted to the manager itself; the windows
// are created, moved and destroyed on the GUI thread only. When a popup
// goes, the ones standing above it move down by one slot.
#include "Toolkit/Mutex.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "descriptors/BaseCtrlDescriptor.h"
#include "lists/EventDispatcher.h"
#include "lists/IDelegate.h"
#include "module/Singleton.h"
#include "navigation/IStateParameter.h"

#include <wx/event.h>

#include <list>
#include <vector>

namespace UIKit {

class AddPopupEvent;
class WinNotifPopup;

class UIKIT_API NotifPopupManager : public wxEvtHandler, public EventDispatcher, public Singleton<NotifPopupManager> {
public:
    static const wxEventType EVT_ADD_WINDOW;
    // The vertical gap between stacked popups, in pixels.
    static constexpr int SPACE_BETWEN_POP = 10;
    // Distance of the stack from the right and bottom edges of the display.
    static constexpr int c_rightMargin = 50;
    static constexpr int c_bottomMargin = 100;
    // How long a popup that closes by itself stays, in milliseconds.
    static constexpr int c_autoCloseMs = 10000;

    NotifPopupManager();
    ~NotifPopupManager() override;

    // Reads the popup frame from the pack's "notifpopup" document; without
    // it every request is ignored. Also makes the popup transition known.
    bool Start();
    // Deletes the open popups at once.
    void Stop();

    // Any thread: posts a request for a popup with a message and an
    // optional action; dropped before Start().
    void AddWindow(const TString<wchar_t>& message, bool autoClose, const TString<wchar_t>& label,
                   const TString<wchar_t>& sequence, const TString<wchar_t>& state,
                   Toolkit::smart_ptr<IStateParameter> parameter, bool actionFlag);
    // GUI thread (the string table may change language there): a popup that
    // closes by itself, with the current culture's text for `key`, its
    // "%s" replaced by `value`.
    void AddTextWindow(const TString<char>& key, const TString<wchar_t>& value);
    // Any thread: posts a request for a popup showing the named template,
    // steered by the delegate.
    void AddWindowWithDescriptor(const TString<wchar_t>& descriptor, Toolkit::smart_ptr<IDelegate> delegate,
                                 bool autoClose, const TString<wchar_t>& message);

    // GUI thread: opens the popup a posted request asks for.
    void AddWindowEvent(wxCommandEvent& event);
    // GUI thread: a popup closes; the ones above it move down a slot.
    void RemoveWindow(WinNotifPopup* popup);
    // GUI thread: a popup that is being destroyed leaves the list quietly.
    void Forget(WinNotifPopup* popup);

    // The open popups, oldest first.
    std::vector<WinNotifPopup*> GetPopups();
    Toolkit::smart_ptr<BaseCtrlDescriptor> GetTemplate();

private:
    // The popup frame of the pack, or null.
    static Toolkit::smart_ptr<BaseCtrlDescriptor> loadTemplate();
    void post(AddPopupEvent& event);
    WinNotifPopup* open(const AddPopupEvent& request, const wxSize& display);

    std::list<WinNotifPopup*> m_popups;
    Toolkit::Mutex m_lock;
    Toolkit::smart_ptr<BaseCtrlDescriptor> m_template;

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit

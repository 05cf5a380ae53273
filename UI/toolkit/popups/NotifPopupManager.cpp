#include "popups/NotifPopupManager.h"

#include "Toolkit/ILogger.h"
#include "appearance/Appearance.h"
#include "descriptors/FrameCtrlDescriptor.h"
#include "factory/CtrlFactory.h"
#include "navigation/TransitionManager.h"
#include "popups/AddPopupEvent.h"
#include "popups/PopupState.h"
#include "popups/TActivatePopupState.h"
#include "popups/WinNotifPopup.h"
#include "xml/XMLLoader.h"

#include <wx/display.h>

#include <algorithm>

namespace UIKit {

const wxEventType NotifPopupManager::EVT_ADD_WINDOW = wxNewEventType();

wxBEGIN_EVENT_TABLE(NotifPopupManager, wxEvtHandler)
    EVT_COMMAND(wxID_ANY, NotifPopupManager::EVT_ADD_WINDOW, NotifPopupManager::AddWindowEvent)
wxEND_EVENT_TABLE()

namespace {

const wchar_t* const c_strDocument = L"notifpopup";
// The class name under which frames are described in the packs.
const wchar_t* const c_strFrameClass = L"FrameCtrl";

bool isPopupFrame(const XMLNode& node)
{
    return node.GetTagName().equalsNoCase(L"Control") && node.GetClass() == c_strFrameClass;
}

// The popup frame: the document's own element, else the first frame inside
// its first "Templates" element (which may be the document's element).
Toolkit::smart_ptr<XMLNode> findPopupFrame(const XMLLoader& loader)
{
    Toolkit::smart_ptr<XMLNode> root = loader.GetRootNode();
    if (!root || isPopupFrame(*root))
        return root;
    Toolkit::smart_ptr<XMLNode> templates =
        root->GetTagName().equalsNoCase(L"Templates") ? root : loader.GetNode("Templates", "", "");
    if (!templates)
        return {};
    return XMLLoader(templates).GetNode("Control", "class", "FrameCtrl");
}

} // namespace

NotifPopupManager::NotifPopupManager()
{
    // Requests posted from any thread come back to this handler on the GUI thread.
    AddListener(this);
}

NotifPopupManager::~NotifPopupManager()
{
    RemoveListener(this);
    Stop();
}

bool NotifPopupManager::Start()
{
    auto popupFrame = loadTemplate();
    if (auto transitions = TransitionManager::Instance())
        transitions->Add(PopupState::c_strState, Toolkit::smart_ptr<ITransition>(new TActivatePopupState()));
    Toolkit::MutexLocker lock(m_lock);
    m_template = popupFrame;
    return bool(m_template);
}

Toolkit::smart_ptr<BaseCtrlDescriptor> NotifPopupManager::loadTemplate()
{
    auto factory = CtrlFactory::Instance();
    if (!factory)
        return {};
    XMLLoader loader;
    loader.SetResources(factory->GetResources());
    if (!loader.LoadFromAppearance(c_strDocument)) {
        TK_LOG(Toolkit::LogInfo) << "No " << c_strDocument << " document in the pack: popups are not shown";
        return {};
    }
    auto frame = factory->CreateDescriptor(findPopupFrame(loader));
    if (!frame.DynamicCast<FrameCtrlDescriptor>()) {
        loader.Report("", "no popup frame (a Control of class FrameCtrl) in the document");
        return {};
    }
    return frame;
}

void NotifPopupManager::Stop()
{
    std::list<WinNotifPopup*> popups;
    {
        Toolkit::MutexLocker lock(m_lock);
        popups.swap(m_popups);
    }
    for (WinNotifPopup* popup : popups)
        delete popup;
}

void NotifPopupManager::AddWindow(const TString<wchar_t>& message, bool autoClose, const TString<wchar_t>& label,
                                  const TString<wchar_t>& sequence, const TString<wchar_t>& state,
                                  Toolkit::smart_ptr<IStateParameter> parameter, bool actionFlag)
{
    AddPopupEvent request(EVT_ADD_WINDOW, message, autoClose, label, sequence, state, std::move(parameter), {}, {},
                          actionFlag);
    post(request);
}

void NotifPopupManager::AddTextWindow(const TString<char>& key, const TString<wchar_t>& value)
{
    const auto appearance = Appearance::Instance();
    if (!appearance)
        return;
    wxString text(appearance->GetStr(key));
    text.Replace("%s", wxString(value));
    AddWindow(TString<wchar_t>(text.ToStdWstring()), true, L"", L"", L"", nullptr, false);
}

void NotifPopupManager::AddWindowWithDescriptor(const TString<wchar_t>& descriptor,
                                                Toolkit::smart_ptr<IDelegate> delegate, bool autoClose,
                                                const TString<wchar_t>& message)
{
    AddPopupEvent request(EVT_ADD_WINDOW, message, autoClose, {}, {}, {}, {}, descriptor, std::move(delegate),
                          false);
    post(request);
}

void NotifPopupManager::post(AddPopupEvent& request)
{
    {
        Toolkit::MutexLocker lock(m_lock);
        if (!m_template)
            return;
    }
    DispatchEvent(request);
}

void NotifPopupManager::AddWindowEvent(wxCommandEvent& event)
{
    const auto* request = dynamic_cast<const AddPopupEvent*>(&event);
    Toolkit::MutexLocker lock(m_lock);
    if (!request || !m_template || wxDisplay::GetCount() == 0)
        return;
    // The whole display, not its work area: the slots do not depend on panels.
    m_popups.push_back(open(*request, wxDisplay(0u).GetGeometry().GetSize()));
}

WinNotifPopup* NotifPopupManager::open(const AddPopupEvent& request, const wxSize& display)
{
    const wxSize size = m_template->GetBounds().GetSize();
    const int x = display.x - size.x - c_rightMargin;
    const int y = display.y - size.y - c_bottomMargin - int(m_popups.size()) * (size.y + SPACE_BETWEN_POP);
    // Placed just below the display first, then moved to its slot.
    const int below = display.y;

    auto* popup = new WinNotifPopup(wxRect(wxPoint(x, below), size), request.IsAutoClose() ? c_autoCloseMs : 0);
    popup->LoadDescriptor(m_template);
    popup->SetCustomDescriptor(request.GetCustomDescriptor(), request.GetDelegate());
    popup->Move(x, below);
    popup->SetMessage(request.GetMessage());
    popup->SetAction(request.GetActionLabel(), request.GetActionSequence(), request.GetActionState(),
                     request.GetActionParameter(), request.GetActionFlag());
    popup->Show(true);
    popup->StartFadeAnimation(x, y);
    return popup;
}

void NotifPopupManager::RemoveWindow(WinNotifPopup* popup)
{
    Toolkit::MutexLocker lock(m_lock);
    const auto listed = std::find(m_popups.begin(), m_popups.end(), popup);
    if (listed == m_popups.end())
        return;
    m_popups.remove(popup);
    const int slot = (m_template ? m_template->GetBounds().height : popup->GetSize().y) + SPACE_BETWEN_POP;
    for (WinNotifPopup* other : m_popups)
        if (other->GetTargetY() < popup->GetTargetY())
            other->StartMoveAnimation(other->GetTargetX(), other->GetTargetY() + slot);
    popup->StartEjectFadeAnimation();
}

void NotifPopupManager::Forget(WinNotifPopup* popup)
{
    Toolkit::MutexLocker lock(m_lock);
    m_popups.remove(popup);
}

std::vector<WinNotifPopup*> NotifPopupManager::GetPopups()
{
    Toolkit::MutexLocker lock(m_lock);
    return {m_popups.begin(), m_popups.end()};
}

Toolkit::smart_ptr<BaseCtrlDescriptor> NotifPopupManager::GetTemplate()
{
    Toolkit::MutexLocker lock(m_lock);
    return m_template;
}

} // namespace UIKit

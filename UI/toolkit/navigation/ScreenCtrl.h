#pragma once
#include "module/Export.h"
// One full page of the interface, shown in the dashboard's placeholder. It
// turns button clicks into navigation events, gives OK and Cancel to its
// delegate and Add, Delete and Edit to its data source (by default the
// screen itself is both), answers the keyboard (Tab, Enter, Esc) wherever
// its focus is, and a worker screen runs a background job while a progress
// panel shows.
#include "controls/PanelCtrl.h"
#include "frames/Animation.h"
#include "lists/IDataSource.h"
#include "lists/IDelegate.h"
#include "navigation/WorkerCtrl.h"

#include <wx/weakref.h>

#include <vector>

namespace UIKit {

class EditTextCtrl;
class ButtonCtrl;

class UIKIT_API ScreenCtrl : public PanelCtrl, public WorkerCtrl, public IDelegate, public IDataSource {
public:
    // `rect` is not used: the bounds come from the descriptor.
    ScreenCtrl(wxWindow* parent, int id, const wxRect& rect, bool worker = false);
    // Stops the worker while the screen and its event objects still exist.
    ~ScreenCtrl() override;

    bool VirtualDataSource() const override { return true; }
    virtual IDelegate* GetDelegate() const { return m_delegate; }
    virtual IDataSource* GetDataSource() const { return m_dataSource; }
    virtual void SetCallerScreen(const TString<wchar_t>& name) { m_callerScreen = name; }
    virtual const TString<wchar_t>& GetCallerScreen() const { return m_callerScreen; }
    virtual void SetNativeAnimation(Animation animation) { m_nativeAnimation = animation; }
    virtual Animation GetNativeAnimation() const { return m_nativeAnimation; }
    // Called once the screen is in view: a worker screen whose job is not
    // under way shows its progress panel and asks for the job.
    virtual void ScreenSlideEnter();
    virtual void ScreenSlideLeave() {}
    // Hands a navigation event to the sequence manager; false when nobody
    // carried it out.
    virtual bool DoEvent(int id);
    virtual void OnWorkerThreadStarted(wxCommandEvent& event);
    virtual void OnWorkerThreadFinished(wxCommandEvent& event);
    virtual void OnListItemSelected(wxCommandEvent&) {}
    virtual void OnOK(wxCommandEvent& event);
    virtual void OnCancel(wxCommandEvent& event);
    virtual void OnAdd(wxCommandEvent& event);
    virtual void OnDelete(wxCommandEvent& event);
    virtual void OnEdit(wxCommandEvent& event);
    virtual void OnEnter(wxCommandEvent& event);
    virtual void OnTab(wxCommandEvent& event);
    virtual void OnEsc(wxCommandEvent& event);

    // Null stands for the screen itself; every control below is told too.
    void SetDelegate(IDelegate* delegate) override;
    void SetDataSource(IDataSource* source) override;
    // Builds as a panel, then hides the screen and places it at its bounds.
    bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor) override;
    void OnSetFocus(wxFocusEvent& event) override;
    void OnKillFocus(wxFocusEvent& event) override { event.Skip(); }
    void OnMouseWheel(wxMouseEvent& event) override;
    bool Destroy() override;

    bool IsWorkerScreen() const { return m_worker; }

    // The keys a screen answers before the window's hot keys: Tab and
    // Shift+Tab move the focus round the tab stops, Enter presses the
    // focused button or else the default one, Esc presses the back one.
    // False for other keys and when there is nothing to press.
    virtual bool HandleNavigationKey(int code, bool shift);
    // The controls Tab visits, in the order of the description: enabled
    // and visible buttons, text fields and lists.
    std::vector<Control*> TabStops();
    // The tab stop holding the keyboard focus, or null.
    Control* FocusedTabStop();
    // The button Enter presses: the first usable of OK, Yes, Save, Connect.
    ButtonCtrl* DefaultButton();
    // The button Esc presses: the first usable of Cancel, Back, No.
    ButtonCtrl* BackButton();

protected:
    void OnDoWork() override {}

private:
    // The button with that id when it can be pressed (enabled and shown up
    // to the screen), otherwise null.
    ButtonCtrl* usableButton(int id);
    ButtonCtrl* firstUsableButton(std::initializer_list<int> ids);
    // Clicks the button as the mouse would; false for null.
    static bool press(ButtonCtrl* button);
    void moveFocus(bool backward);
    // Which tab stop the focus went to, when it moves by mouse or by code.
    void onChildFocus(wxChildFocusEvent& event);
    void onCharHook(wxKeyEvent& event);
    // Shown, and every window between it and the screen shown as well.
    bool isVisible(const wxWindow* window) const;
    // Where the screen's focus goes: the search field, else the first
    // visible list, else the first visible text field; null for nobody.
    wxWindow* focusTarget();
    template <class Call>
    void withWaitCursor(Call call);
    void onOtherButton(wxCommandEvent& event) { DoEvent(event.GetId()); }
    // The worker posts thread events; the handlers take command events.
    void onWorker(wxThreadEvent& event);

    bool m_worker;
    IDelegate* m_delegate;
    IDataSource* m_dataSource;
    TString<wchar_t> m_callerScreen;
    Animation m_nativeAnimation = AnimationNone;
    // The tab stop last given the focus: the one to move on from when the
    // toolkit cannot tell where the focus is (a window not yet shown).
    wxWeakRef<Control> m_tabStop;

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit

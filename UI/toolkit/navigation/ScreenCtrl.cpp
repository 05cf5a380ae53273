#include "navigation/ScreenCtrl.h"

#include "controls/ButtonCtrl.h"
#include "controls/EditTextCtrl.h"
#include "factory/ControlIds.h"
#include "navigation/SequenceManager.h"
#include "util/Util.h"

#include <algorithm>
#include <vector>

namespace UIKit {

namespace {

// Lists are recognised by the class their description names: finding one
// to hand it the focus or the wheel needs nothing of the list control.
Control* asList(wxWindow* window)
{
    auto* control = dynamic_cast<Control*>(window);
    return control && control->GetDescriptor() && control->GetDescriptor()->GetClass() == L"ListCtrl" ? control
                                                                                                      : nullptr;
}

EditTextCtrl* asField(wxWindow* window)
{
    return dynamic_cast<EditTextCtrl*>(window);
}

// Lists take the keys themselves: their items are not tab stops.
Control* asTabStop(wxWindow* window)
{
    auto* control = dynamic_cast<Control*>(window);
    return control && (asList(control) || control->AcceptsFocusFromKeyboard()) ? control : nullptr;
}

// The matching descendants depth first in child order; a match's own
// children are not searched.
template <class T>
void collect(wxWindow* parent, T* (*match)(wxWindow*), std::vector<T*>& out)
{
    for (wxWindow* child : parent->GetChildren()) {
        if (T* found = match(child))
            out.push_back(found);
        else
            collect(child, match, out);
    }
}

template <class T>
std::vector<T*> collect(wxWindow* parent, T* (*match)(wxWindow*))
{
    std::vector<T*> out;
    collect(parent, match, out);
    return out;
}

template <class Apply>
void forEachControl(wxWindow* parent, Apply apply)
{
    for (wxWindow* child : parent->GetChildren()) {
        if (auto* control = dynamic_cast<Control*>(child))
            apply(*control);
        forEachControl(child, apply);
    }
}

} // namespace

wxBEGIN_EVENT_TABLE(ScreenCtrl, PanelCtrl)
    wx__DECLARE_EVT1(WorkerCtrl::EVT_WORKER_THREAD_STARTED, wxID_ANY, wxThreadEventHandler(ScreenCtrl::onWorker))
    wx__DECLARE_EVT1(WorkerCtrl::EVT_WORKER_THREAD_FINISHED, wxID_ANY, wxThreadEventHandler(ScreenCtrl::onWorker))
    // The list's item-selected event joins here once the list control exists.
    EVT_BUTTON(ID_OK, ScreenCtrl::OnOK)
    EVT_BUTTON(ID_CANCEL, ScreenCtrl::OnCancel)
    EVT_BUTTON(ID_ADD, ScreenCtrl::OnAdd)
    EVT_BUTTON(ID_DELETE, ScreenCtrl::OnDelete)
    EVT_BUTTON(ID_EDIT, ScreenCtrl::OnEdit)
    EVT_BUTTON(wxID_ANY, ScreenCtrl::onOtherButton)
    EVT_COMMAND(wxID_ANY, PanelCtrl::EVT_KEYPRESSED_ENTER, ScreenCtrl::OnEnter)
    EVT_COMMAND(wxID_ANY, PanelCtrl::EVT_KEYPRESSED_TAB, ScreenCtrl::OnTab)
    EVT_COMMAND(wxID_ANY, PanelCtrl::EVT_KEYPRESSED_ESC, ScreenCtrl::OnEsc)
wxEND_EVENT_TABLE()

ScreenCtrl::ScreenCtrl(wxWindow* parent, int id, const wxRect&, bool worker)
    : PanelCtrl(parent, id, wxRect(), wxBORDER_NONE), IDataSource(TString<wchar_t>()), m_worker(worker),
      m_delegate(this), m_dataSource(this)
{
    // Bound, not in the table: the key comes up from whichever control of
    // the screen has the focus, before the window's hot keys see it.
    Bind(wxEVT_CHAR_HOOK, &ScreenCtrl::onCharHook, this);
    Bind(wxEVT_CHILD_FOCUS, &ScreenCtrl::onChildFocus, this);
}

ScreenCtrl::~ScreenCtrl()
{
    Stop();
}

bool ScreenCtrl::Destroy()
{
    // Earliest point of a screen's end: the job stops before any part of
    // the screen goes.
    Stop();
    return PanelCtrl::Destroy();
}

bool ScreenCtrl::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    PanelCtrl::LoadDescriptor(descriptor);
    Show(false);
    const wxRect& bounds = descriptor->GetBounds();
    SetSize(bounds.x, bounds.y, bounds.width, bounds.height, wxSIZE_AUTO);
    return true;
}

void ScreenCtrl::SetDelegate(IDelegate* delegate)
{
    m_delegate = delegate ? delegate : this;
    forEachControl(this, [delegate](Control& control) { control.SetDelegate(delegate); });
}

void ScreenCtrl::SetDataSource(IDataSource* source)
{
    m_dataSource = source ? source : this;
    forEachControl(this, [source](Control& control) { control.SetDataSource(source); });
}

bool ScreenCtrl::DoEvent(int id)
{
    auto sequences = Singleton<SequenceManager>::Instance();
    return sequences && sequences->DoEvent(id);
}

void ScreenCtrl::ScreenSlideEnter()
{
    if (!m_worker || IsBusy())
        return;
    // The progress panel shows at once, not when the thread gets going.
    wxCommandEvent none;
    OnWorkerThreadStarted(none);
    RequestDoWork();
}

void ScreenCtrl::OnWorkerThreadStarted(wxCommandEvent&)
{
    if (!m_worker)
        return;
    for (int id : {ID_OK, ID_CANCEL, ID_EDIT})
        Util::EnableWindow(this, id, false);
    Util::ShowWindow(this, L"ProgressPanel", true, true);
    Util::ShowWindow(this, L"List", false, false);
    Util::ShowWindow(this, L"View", false, false);
}

void ScreenCtrl::OnWorkerThreadFinished(wxCommandEvent&)
{
    if (!m_worker)
        return;
    // Edit stays disabled: the job's results carry no selection yet.
    for (int id : {ID_OK, ID_CANCEL})
        Util::EnableWindow(this, id, true);
    Util::ShowWindow(this, L"ProgressPanel", false, true);
    Util::ShowWindow(this, L"List", true, false);
    Util::ShowWindow(this, L"View", true, false);
    SetFocus();
}

void ScreenCtrl::onWorker(wxThreadEvent& event)
{
    wxCommandEvent command(event.GetEventType(), event.GetId());
    if (event.GetEventType() == EVT_WORKER_THREAD_STARTED)
        OnWorkerThreadStarted(command);
    else
        OnWorkerThreadFinished(command);
}

template <class Call>
void ScreenCtrl::withWaitCursor(Call call)
{
    SetWaitCursor();
    call();
    RestorePreviousCursor();
}

void ScreenCtrl::OnOK(wxCommandEvent&)
{
    withWaitCursor([this] { GetDelegate()->doFlush(); });
}

void ScreenCtrl::OnCancel(wxCommandEvent&)
{
    withWaitCursor([this] { GetDelegate()->doRollback(); });
}

void ScreenCtrl::OnAdd(wxCommandEvent&)
{
    withWaitCursor([this] { GetDataSource()->doAddItem(); });
}

void ScreenCtrl::OnDelete(wxCommandEvent& event)
{
    withWaitCursor([this, &event] { GetDataSource()->doDeleteItemFromRowIndex(unsigned(event.GetInt())); });
}

void ScreenCtrl::OnEdit(wxCommandEvent& event)
{
    withWaitCursor([this, &event] { GetDataSource()->doEditItemFromRowIndex(unsigned(event.GetInt())); });
}

bool ScreenCtrl::isVisible(const wxWindow* window) const
{
    if (!window)
        return false;
    for (; window && window != this; window = window->GetParent())
        if (!window->IsShown())
            return false;
    return true;
}

ButtonCtrl* ScreenCtrl::usableButton(int id)
{
    auto* button = dynamic_cast<ButtonCtrl*>(Util::FindControl(this, id));
    return button && button->IsEnabled() && isVisible(button) ? button : nullptr;
}

ButtonCtrl* ScreenCtrl::firstUsableButton(std::initializer_list<int> ids)
{
    for (int id : ids)
        if (ButtonCtrl* button = usableButton(id))
            return button;
    return nullptr;
}

ButtonCtrl* ScreenCtrl::DefaultButton()
{
    return firstUsableButton({ID_OK, ID_YES, ID_SAVE, ID_CONNECT});
}

ButtonCtrl* ScreenCtrl::BackButton()
{
    return firstUsableButton({ID_CANCEL, ID_BACK, ID_NO});
}

bool ScreenCtrl::press(ButtonCtrl* button)
{
    if (!button)
        return false;
    wxCommandEvent none;
    button->OnApplyControl(none);
    return true;
}

void ScreenCtrl::OnEnter(wxCommandEvent&)
{
    press(DefaultButton());
}

void ScreenCtrl::OnEsc(wxCommandEvent&)
{
    press(BackButton());
}

void ScreenCtrl::OnTab(wxCommandEvent&)
{
    moveFocus(false);
}

std::vector<Control*> ScreenCtrl::TabStops()
{
    std::vector<Control*> usable;
    for (Control* stop : collect(this, asTabStop))
        if (stop->IsEnabled() && isVisible(stop))
            usable.push_back(stop);
    return usable;
}

Control* ScreenCtrl::FocusedTabStop()
{
    const auto stops = TabStops();
    const wxWindow* focus = wxWindow::FindFocus();
    for (Control* stop : stops)
        if (focus && (focus == stop || stop->IsDescendant(const_cast<wxWindow*>(focus))))
            return stop;
    for (Control* stop : stops)
        if (stop == m_tabStop.get())
            return stop;
    return nullptr;
}

void ScreenCtrl::moveFocus(bool backward)
{
    const auto stops = TabStops();
    if (stops.empty())
        return;
    const auto at = std::find(stops.begin(), stops.end(), FocusedTabStop());
    size_t next = backward ? stops.size() - 1 : 0;
    if (at != stops.end()) {
        const size_t index = size_t(at - stops.begin());
        next = (index + (backward ? stops.size() - 1 : 1)) % stops.size();
    }
    m_tabStop = stops[next];
    stops[next]->SetFocus();
}

bool ScreenCtrl::HandleNavigationKey(int code, bool shift)
{
    if (code == WXK_TAB) {
        moveFocus(shift);
        return true;
    }
    if (code == WXK_ESCAPE)
        return press(BackButton());
    if (code != WXK_RETURN && code != WXK_NUMPAD_ENTER)
        return false;
    Control* focused = FocusedTabStop();
    if (auto* button = dynamic_cast<ButtonCtrl*>(focused))
        return press(button);
    // A list and a field of several lines use Enter themselves.
    if (focused && (asList(focused) || !focused->AcceptsApplyDefaultFromKeyBoard()))
        return false;
    return press(DefaultButton());
}

void ScreenCtrl::onCharHook(wxKeyEvent& event)
{
    // Keys with Ctrl or Alt belong to the hot keys.
    if (event.ControlDown() || event.AltDown() || !HandleNavigationKey(event.GetKeyCode(), event.ShiftDown()))
        event.Skip();
}

void ScreenCtrl::onChildFocus(wxChildFocusEvent& event)
{
    for (Control* stop : TabStops())
        if (stop == event.GetWindow() || stop->IsDescendant(event.GetWindow()))
            m_tabStop = stop;
    event.Skip();
}

wxWindow* ScreenCtrl::focusTarget()
{
    auto* search = Util::FindControl<EditTextCtrl>(this, L"SearchText", true);
    if (search && search->IsShown())
        return search;
    for (Control* list : collect(this, asList))
        if (isVisible(list))
            return list;
    for (EditTextCtrl* field : collect(this, asField))
        if (isVisible(field))
            return field;
    return nullptr;
}

void ScreenCtrl::OnSetFocus(wxFocusEvent&)
{
    if (wxWindow* target = focusTarget())
        target->SetFocus();
}

void ScreenCtrl::OnMouseWheel(wxMouseEvent& event)
{
    for (wxWindow* child : GetChildren())
        if (Control* list = asList(child)) {
            list->GetEventHandler()->ProcessEvent(event);
            return;
        }
    if (Control* list = asList(Util::RecursiveFindControl(this, L"List")))
        list->GetEventHandler()->ProcessEvent(event);
}

} // namespace UIKit

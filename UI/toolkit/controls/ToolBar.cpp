#include "controls/ToolBar.h"

#include "controls/ButtonCtrl.h"
#include "factory/ControlIds.h"
#include "factory/CtrlFactory.h"

#include <algorithm>

namespace UIKit {

const wxEventType ToolBar::EVT_PUSH_BUTTON = wxNewEventType();
const wxEventType ToolBar::EVT_RAISE_BUTTON = wxNewEventType();

namespace {

bool isSpacer(const wxWindow* item)
{
    return item->GetId() == ID_SPACER;
}

} // namespace

ToolBar::ToolBar(wxWindow* parent, int id, const wxRect& bounds) : PanelCtrl(parent, id, bounds, wxNO_BORDER) {}

bool ToolBar::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    PanelCtrl::LoadDescriptor(descriptor);
    ArrangeItems();
    // The factory builds the buttons after this returns; lay them out once
    // the event loop runs.
    CallAfter([this] { ArrangeItems(); });
    return true;
}

bool ToolBar::AutoHide() const
{
    auto toolbar = m_descriptor.DynamicCast<ToolbarCtrlDescriptor>();
    return toolbar && toolbar->IsAutoHide();
}

void ToolBar::collectChildButtons()
{
    for (wxWindow* child : GetChildren())
        if (auto* button = dynamic_cast<ButtonCtrl*>(child))
            if (std::find(m_items.begin(), m_items.end(), button) == m_items.end())
                m_items.push_back(button);
}

void ToolBar::ArrangeItems()
{
    Toolkit::MutexLocker lock(m_lock);
    collectChildButtons();
    const wxRect padding = m_descriptor ? m_descriptor->GetPadding() : wxRect();
    int fixed = 0;
    int spacers = 0;
    for (ButtonCtrl* item : m_items) {
        if (!item->IsShown())
            continue;
        if (isSpacer(item))
            ++spacers;
        else
            fixed += item->GetSize().x;
    }
    // Spacers shrink to nothing when the buttons alone overflow; the
    // division's remainder stays unused at the right.
    const int free = std::max(0, GetSize().x - padding.x - padding.width - fixed);
    const int spacerWidth = spacers > 0 ? free / spacers : 0;
    int x = padding.x;
    for (ButtonCtrl* item : m_items) {
        if (!item->IsShown())
            continue;
        if (isSpacer(item))
            item->SetSize(spacerWidth, item->GetSize().y);
        // Measured from the skin's own y, so arranging again never drifts.
        const int y = item->GetDescriptor() ? item->GetDescriptor()->GetBounds().y : item->GetPosition().y;
        item->Move(x, padding.y + y);
        x += item->GetSize().x;
    }
}

ButtonCtrl* ToolBar::makeButton(const Toolkit::smart_ptr<BaseCtrlDescriptor>& descriptor)
{
    const auto factory = Singleton<CtrlFactory>::Instance();
    if (!factory || !descriptor)
        return nullptr;
    Control* control = factory->CreateControl(descriptor, this, descriptor->GetId());
    auto* button = dynamic_cast<ButtonCtrl*>(control);
    // Anything but a button has no place in the row.
    if (control && !button)
        control->Destroy();
    return button;
}

bool ToolBar::AddItem(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    ButtonCtrl* button = makeButton(descriptor);
    if (button)
        m_items.push_back(button);
    return button != nullptr;
}

bool ToolBar::InsertItem(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor, unsigned int id)
{
    Toolkit::MutexLocker lock(m_lock);
    const auto at = find(id);
    if (at == m_items.end())
        return AddItem(descriptor);
    const auto index = at - m_items.begin();
    if (ButtonCtrl* button = makeButton(descriptor))
        m_items.insert(m_items.begin() + index, button);
    return true;
}

std::vector<ButtonCtrl*>::iterator ToolBar::find(unsigned int id)
{
    return std::find_if(m_items.begin(), m_items.end(),
                        [id](const ButtonCtrl* item) { return item->GetId() == int(id); });
}

bool ToolBar::ShowItem(unsigned int id, bool show)
{
    const auto item = find(id);
    if (item == m_items.end())
        return false;
    (*item)->Show(show);
    ArrangeItems();
    return true;
}

bool ToolBar::EnableItem(unsigned int id, bool enable)
{
    const auto item = find(id);
    if (item == m_items.end())
        return false;
    (*item)->Enable(enable);
    return true;
}

void ToolBar::RemoveAllItems()
{
    for (ButtonCtrl* item : m_items) {
        RemoveChild(item);
        delete item;
    }
    m_items.clear();
}

void ToolBar::postTo(int id, wxEventType type)
{
    if (auto* button = dynamic_cast<ButtonCtrl*>(FindWindowById(id, this))) {
        wxCommandEvent event(type, 0);
        button->GetEventHandler()->AddPendingEvent(event);
    }
}

void ToolBar::PushButton(int id, bool raise)
{
    if (id == m_pushedId)
        return;
    if (raise && m_pushedId != 0)
        postTo(m_pushedId, EVT_RAISE_BUTTON);
    m_pushedId = id;
    postTo(m_pushedId, EVT_PUSH_BUTTON);
}

bool ToolBar::Enable(bool enable)
{
    return Control::Enable(enable);
}

void ToolBar::OnSize(wxSizeEvent& event)
{
    // The background is rendered again at the new size, then the row follows.
    PanelCtrl::OnSize(event);
    ArrangeItems();
}

void ToolBar::OnSetFocus(wxFocusEvent&)
{
    for (ButtonCtrl* item : m_items) {
        if (!isSpacer(item) && item->IsEnabled() && item->AcceptsFocusFromKeyboard()) {
            item->SetFocus();
            return;
        }
    }
}

} // namespace UIKit

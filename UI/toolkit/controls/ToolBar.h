#pragma once
#include "module/Export.h"
// A skinned row of buttons laid out left to right, where spacer items
// (id ID_SPACER) share the width the buttons leave free. Buttons are added,
// inserted, shown, enabled and removed by window id, and one button at a
// time can be marked pushed; buttons learn it through EVT_PUSH_BUTTON and
// EVT_RAISE_BUTTON, posted to them.
#include "Toolkit/Mutex.h"
#include "controls/PanelCtrl.h"
#include "descriptors/ToolbarCtrlDescriptor.h"

#include <vector>

namespace UIKit {

class ButtonCtrl;

class UIKIT_API ToolBar : public PanelCtrl {
public:
    static const wxEventType EVT_PUSH_BUTTON;
    static const wxEventType EVT_RAISE_BUTTON;

    ToolBar(wxWindow* parent, int id, const wxRect& bounds);

    virtual bool AutoHide() const;
    // Lays the shown items out left to right; spacers get equal shares of
    // the width the buttons and side paddings leave (none when negative).
    virtual void ArrangeItems();
    // Builds a button from the descriptor and appends it; false when the
    // descriptor makes no button. Does not arrange.
    virtual bool AddItem(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor);
    // Builds a button and puts it before the first item with window id
    // `id`, or at the end when there is none. Does not arrange.
    virtual bool InsertItem(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor, unsigned int id);
    virtual bool ShowItem(unsigned int id, bool show);
    virtual bool EnableItem(unsigned int id, bool enable);
    // Destroys every item. Does not arrange.
    virtual void RemoveAllItems();
    // Marks the button `id` pushed; with `raise`, the button pushed before
    // is told it is raised.
    void PushButton(int id, bool raise);

    bool Enable(bool enable = true) override;
    bool AcceptsFocus() const override { return false; }
    bool AcceptsFocusFromKeyboard() const override { return false; }
    // Arranges the child buttons now and again from the event loop, since
    // the factory builds them after loading; every arrangement takes child
    // buttons that are not items yet into the row, in child order.
    bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor) override;
    void OnSize(wxSizeEvent& event) override;
    void OnSetFocus(wxFocusEvent& event) override;

    const std::vector<ButtonCtrl*>& GetItems() const { return m_items; }
    int GetPushedId() const { return m_pushedId; }

private:
    void collectChildButtons();
    // The first item with that window id, or the end.
    std::vector<ButtonCtrl*>::iterator find(unsigned int id);
    ButtonCtrl* makeButton(const Toolkit::smart_ptr<BaseCtrlDescriptor>& descriptor);
    void postTo(int id, wxEventType type);

    Toolkit::Mutex m_lock;
    // Child windows in display order; the toolbar deletes them only in
    // RemoveAllItems.
    std::vector<ButtonCtrl*> m_items;
    int m_pushedId = 0;
};

// The name the skins use for the class.
using ToolbarCtrl = ToolBar;

} // namespace UIKit

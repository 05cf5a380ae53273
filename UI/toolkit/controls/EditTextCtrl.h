#pragma once
#include "module/Export.h"
// A skinned panel hosting one native text box configured from the
// description (password, multi-line, read-only, border, alignment, font).
// Focus changes and special keys of the box become the library's events.
#include "controls/PanelCtrl.h"
#include "descriptors/EditTextCtrlDescriptor.h"
#include "descriptors/FontDescriptor.h"

namespace UIKit {

class MyTextControl;

class UIKIT_API EditTextCtrl : public PanelCtrl {
public:
    static const wxEventType EVT_EDIT_TEXT_SET_FOCUS;
    static const wxEventType EVT_EDIT_TEXT_KILL_FOCUS;

    EditTextCtrl(wxWindow* parent, int id, const wxRect& bounds);

    virtual void SetMaxChar(unsigned int count);
    virtual void GetSelection(unsigned int& from, unsigned int& to) const;
    virtual void SetSelection(unsigned int from, unsigned int to);
    virtual void OnEditTextSetFocus(wxCommandEvent& event);
    virtual void OnEditTextKillFocus(wxCommandEvent& event);
    virtual void OnChar(wxKeyEvent& event);

    // Showing an edit box always starts it empty, with a text-changed event
    // so that whoever follows the text sees it emptied.
    bool Show(bool show = true) override;
    bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor) override;
    // The box's current text.
    const TString<wchar_t>& GetControlLabel() const override;
    void SetControlLabel(const TString<wchar_t>& text) override;
    void OnSetFocus(wxFocusEvent& event) override;
    bool AcceptsFocusFromKeyboard() const override;
    bool AcceptsApplyDefaultFromKeyBoard() const override;

    long GetInsertionPoint() const;
    void SetInsertionPoint(long position);
    bool HasBeenModifiedByUser() const;

    // Keep only digits / characters from 32 to 255; true when something was
    // removed, the caret then moved back by as many characters.
    bool FilterDigits(TString<wchar_t>& out);
    bool FilterAlphaNumeric(TString<wchar_t>& out);

    MyTextControl* GetTextBox() const { return m_textBox; }
    // Where the native box sits: inside the padding, or inside the margins
    // of the skin image, or 4 pixels in from the edges, so that the skin
    // stays visible around the box.
    static wxRect TextBoxArea(const wxSize& size, const EditTextCtrlDescriptor& edit);

private:
    template <class Keep>
    bool filter(TString<wchar_t>& out, Keep keep);
    void notifyParent(wxEventType type);

    Toolkit::smart_ptr<EditTextCtrlDescriptor> m_edit;
    MyTextControl* m_textBox = nullptr;
    bool m_multiline = false;
    bool m_readOnly = false;
    Toolkit::smart_ptr<FontDescriptor> m_font;

    void onSetFocusNotice(wxCommandEvent& e) { OnEditTextSetFocus(e); }
    void onKillFocusNotice(wxCommandEvent& e) { OnEditTextKillFocus(e); }
    void onChar(wxKeyEvent& e) { OnChar(e); }
};

} // namespace UIKit

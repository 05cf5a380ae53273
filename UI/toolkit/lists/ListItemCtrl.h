#pragma once
#include "module/Export.h"
// One row of a ListCtrl: a skinned button whose label may span several
// lines, with a sort string and a filter string the list orders and filters
// by, an optional indicator image (next or modal), a check mark drawn in
// edit mode, and a context bar (the child toolbar "ContextBar") shown while
// the pointer is over the row.
#include "controls/ButtonCtrl.h"

namespace UIKit {

class ToolBar;

class UIKIT_API ListItemCtrl : public ButtonCtrl {
public:
    enum Indicator { None = 0, Next = 1, Modal = 2 };
    // Margin between the check mark and the edge it is aligned to.
    static constexpr int c_checkMarkMargin = 6;
    static constexpr unsigned int c_noGeneration = 0xFFFFFFFF;

    ListItemCtrl(wxWindow* parent, int id, const wxRect& bounds);

    virtual void ShowContextBar(bool show);
    // Hides the context bar when its skin asks for it to hide by itself.
    virtual void AutoHideContextBar();
    virtual bool ShouldShowContextBar() const { return IsEnabled(); }
    // Lower-cased (single-byte characters only).
    virtual void SetSortString(const TString<wchar_t>& text);
    // Kept as given; the list's cached match is dropped.
    virtual void SetFilterString(const TString<wchar_t>& text);
    virtual const TString<wchar_t>& GetSortString() const { return m_sortString; }
    virtual bool FilterMatch(const TString<wchar_t>& filter);
    virtual void ToggleEditMode() { SetEditMode(!m_editMode); }
    // Places the check mark by its alignment.
    virtual void UpdateLayout();

    bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor) override;
    // Keeps the label and derives the sort and filter strings from it. The
    // text is fitted (over several lines with a label font) when the row is
    // next drawn, so rows that stay off screen never measure text.
    void SetControlLabel(const TString<wchar_t>& label) override;
    // The whole label, not the fitted text.
    const TString<wchar_t>& GetControlLabel() const override { return m_labelText; }
    void DrawCustom(wxDC& dc) override;
    void OnEnterWindow(wxMouseEvent& event) override;
    void OnLeaveWindow(wxMouseEvent& event) override;
    void OnSize(wxSizeEvent& event) override;

    void SetEditMode(bool editMode);
    bool IsEditMode() const { return m_editMode; }
    // Values other than None, Next and Modal change nothing.
    void SetIndicator(int indicator);
    bool HasIndicator() const { return bool(m_indicator); }
    const TString<wchar_t>& GetFilterString() const { return m_filterString; }
    const wxPoint& GetCheckMarkPosition() const { return m_checkMarkPosition; }
    // The child "ContextBar" when it is a toolbar; found once the factory
    // has built the children.
    ToolBar* GetContextBar();

    // The list's cache of FilterMatch for one filter generation.
    unsigned int GetFilterGeneration() const { return m_filterGeneration; }
    bool GetCachedMatch() const { return m_filterMatch; }
    void SetCachedMatch(unsigned int generation, bool match)
    {
        m_filterGeneration = generation;
        m_filterMatch = match;
    }

    // The C library's tolower on single-byte characters; others unchanged.
    static TString<wchar_t> LowerSingleByte(const TString<wchar_t>& text);

protected:
    // The sort and filter strings of a row labelled `label`.
    void setStringsFromLabel(const TString<wchar_t>& label);

private:
    void fitLabel(wxDC& dc);
    // The skin's child "MainLabel", which then shows the label instead of
    // the row itself.
    Control* mainLabel();

    Toolkit::smart_ptr<StaticTextCtrlDescriptor> m_text;
    Toolkit::smart_ptr<ImageCtrl> m_indicator;
    wxPoint m_indicatorPosition;
    Toolkit::smart_ptr<ButtonCtrlDescriptor> m_checkMark;
    Toolkit::smart_ptr<ImageCtrl> m_checkMarkOn;
    Toolkit::smart_ptr<ImageCtrl> m_checkMarkOff;
    wxPoint m_checkMarkPosition;
    unsigned int m_filterGeneration = c_noGeneration;
    bool m_filterMatch = false;
    TString<wchar_t> m_sortString;
    TString<wchar_t> m_filterString;
    TString<wchar_t> m_labelText;
    wxRect m_labelArea;
    // The fitted label is stale: the text or the size changed.
    bool m_fitNeeded = false;
    bool m_editMode = false;
    ToolBar* m_contextBar = nullptr;
    Control* m_mainLabel = nullptr;
};

} // namespace UIKit

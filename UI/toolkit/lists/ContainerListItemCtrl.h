#pragma once
#include "module/Export.h"
// An expandable row: a header (the child button "Header") and a client
// control built from a template, shown below the header while expanded.
// Toggling changes the row's height and lays the list out again.
#include "lists/ListItemCtrl.h"

namespace UIKit {

class UIKIT_API ContainerListItemCtrl : public ListItemCtrl {
public:
    ContainerListItemCtrl(wxWindow* parent, int id, const wxRect& bounds);

    void SetClientCtrl(Toolkit::smart_ptr<BaseCtrlDescriptor> clientTemplate);
    void SetClientCtrl(const TString<wchar_t>& templateName);
    // Header height, plus the client's while expanded; re-lays the list.
    void DisplayClientArea();
    void OnToggle(wxCommandEvent& event);
    void UpdateParentList();

    void UpdateLayout() override;
    // Labels the header.
    void SetControlLabel(const TString<wchar_t>& label) override;
    bool Show(bool show = true) override;
    const TString<wchar_t>& GetSortString() const override { return m_ownSortString; }
    void SetSortString(const TString<wchar_t>& text) override { m_ownSortString = LowerSingleByte(text); }

    bool IsExpanded() const { return m_expanded; }
    Control* GetClientCtrl() const { return m_client; }
    ButtonCtrl* GetHeader();

private:
    bool m_expanded = false;
    Control* m_client = nullptr;
    ButtonCtrl* m_header = nullptr;
    TString<wchar_t> m_ownSortString;

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit

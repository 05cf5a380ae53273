#pragma once
#include "module/Export.h"
// A row with a second, detail label: the child control "DetailLabel", which
// fits and draws the text; the full text is the row's tool tip.
#include "lists/ListItemCtrl.h"

namespace UIKit {

class UIKIT_API LabeledListItemCtrl : public ListItemCtrl {
public:
    LabeledListItemCtrl(wxWindow* parent, int id, const wxRect& bounds);

    void SetDetailLabel(const TString<wchar_t>& text);
    const TString<wchar_t>& GetDetailLabel() const { return m_detail; }
    // The child, found once the factory has built it.
    Control* GetDetailControl();

private:
    Control* m_detailControl = nullptr;
    TString<wchar_t> m_detail;
};

} // namespace UIKit

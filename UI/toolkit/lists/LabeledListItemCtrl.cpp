#include "lists/LabeledListItemCtrl.h"

#include "util/Util.h"

namespace UIKit {

LabeledListItemCtrl::LabeledListItemCtrl(wxWindow* parent, int id, const wxRect& bounds)
    : ListItemCtrl(parent, id, bounds)
{
}

Control* LabeledListItemCtrl::GetDetailControl()
{
    if (!m_detailControl)
        m_detailControl = Util::FindControl<Control>(this, L"DetailLabel", true);
    return m_detailControl;
}

void LabeledListItemCtrl::SetDetailLabel(const TString<wchar_t>& text)
{
    m_detail = text;
    SetToolTip(wxString(text));
    if (Control* detail = GetDetailControl())
        detail->SetControlLabel(text);
    RefreshUpdate(false);
}

} // namespace UIKit

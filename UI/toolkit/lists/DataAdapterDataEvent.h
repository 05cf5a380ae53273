#pragma once
#include "module/Export.h"
// A command event about one row: raised with one of the EVT_DATA_... types
// and posted through a delegate to the lists that listen to it. Dispatchers
// post copies, so Clone keeps the row.
#include <wx/event.h>

namespace UIKit {

class UIKIT_API DataAdapterDataEvent : public wxCommandEvent {
public:
    DataAdapterDataEvent(wxEventType type = wxEVT_NULL, int id = 0, unsigned int row = 0)
        : wxCommandEvent(type, id), m_row(row)
    {
    }

    wxEvent* Clone() const override { return new DataAdapterDataEvent(*this); }

    unsigned int GetRow() const { return m_row; }
    void SetRow(unsigned int row) { m_row = row; }

private:
    unsigned int m_row;
};

} // namespace UIKit

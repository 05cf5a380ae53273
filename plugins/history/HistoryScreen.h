#pragma once
// The connection history screen: the sessions in a list, three buttons
// that sort them by date, duration or volume (again to flip the order), a
// box whose text filters the rows, and a sentence in place of the list
// while there is no session yet.
#include "HistoryRows.h"

#include "navigation/ScreenCtrl.h"

#include <wx/weakref.h>

#include "lists/ListCtrl.h"

namespace historyplugin {

class HistoryScreen : public UIKit::ScreenCtrl {
public:
    static constexpr const wchar_t* c_strClass = L"HistoryScreen";
    static constexpr const wchar_t* c_strRowClass = L"HistoryRow";

    HistoryScreen(wxWindow* parent, int id, const wxRect& bounds);
    ~HistoryScreen() override;

    void ScreenSlideEnter() override;
    // Fills the list again from the history, keeping order and filter.
    void Refill();

private:
    UIKit::ListCtrl* list();
    void onButton(wxCommandEvent& event);
    void onText(wxCommandEvent& event);
    void applyFilter();
    // The button of the sorting column shows the direction with an arrow.
    void markSortButton();

    HistoryRows m_rows;
    // Children may go before the screen does.
    wxWeakRef<UIKit::ListCtrl> m_list;
};

} // namespace historyplugin

#pragma once
#include "module/Export.h"
// A navigation event made on another thread: posted (as a copy) to a
// handler on the GUI thread, which carries it out with
// SequenceManager::DoEvent. The copy shares the parameter object.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "navigation/IStateParameter.h"

#include <wx/event.h>

namespace UIKit {

class UIKIT_API SequenceDoEventEvent : public wxCommandEvent {
public:
    static const wxEventType EVT_SEQUENCE_DO_EVENT;

    SequenceDoEventEvent(const TString<wchar_t>& sequence, const TString<wchar_t>& state, int id,
                         Toolkit::smart_ptr<IStateParameter> parameter);
    ~SequenceDoEventEvent() override;

    wxEvent* Clone() const override;

    const TString<wchar_t>& GetSequence() const { return m_sequence; }
    const TString<wchar_t>& GetState() const { return m_state; }
    int GetEventId() const { return m_id; }
    const Toolkit::smart_ptr<IStateParameter>& GetParameter() const { return m_parameter; }

private:
    TString<wchar_t> m_sequence;
    TString<wchar_t> m_state;
    int m_id;
    Toolkit::smart_ptr<IStateParameter> m_parameter;
};

} // namespace UIKit

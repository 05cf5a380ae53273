#include "navigation/SequenceDoEventEvent.h"

namespace UIKit {

const wxEventType SequenceDoEventEvent::EVT_SEQUENCE_DO_EVENT = wxNewEventType();

SequenceDoEventEvent::SequenceDoEventEvent(const TString<wchar_t>& sequence, const TString<wchar_t>& state, int id,
                                           Toolkit::smart_ptr<IStateParameter> parameter)
    : wxCommandEvent(EVT_SEQUENCE_DO_EVENT, 0),
      m_sequence(sequence),
      m_state(state),
      m_id(id),
      m_parameter(std::move(parameter))
{
}

SequenceDoEventEvent::~SequenceDoEventEvent() = default;

wxEvent* SequenceDoEventEvent::Clone() const
{
    auto* copy = new SequenceDoEventEvent(m_sequence, m_state, m_id, m_parameter);
    copy->SetEventType(GetEventType());
    return copy;
}

} // namespace UIKit

#include "popups/AddPopupEvent.h"

namespace UIKit {

AddPopupEvent::AddPopupEvent(wxEventType type, const TString<wchar_t>& message, bool autoClose,
                             const TString<wchar_t>& actionLabel, const TString<wchar_t>& actionSequence,
                             const TString<wchar_t>& actionState,
                             Toolkit::smart_ptr<IStateParameter> actionParameter,
                             const TString<wchar_t>& customDescriptor, Toolkit::smart_ptr<IDelegate> delegate,
                             bool actionFlag)
    : wxCommandEvent(type, 0),
      m_message(message),
      m_autoClose(autoClose),
      m_actionLabel(actionLabel),
      m_actionSequence(actionSequence),
      m_actionState(actionState),
      m_actionParameter(std::move(actionParameter)),
      m_customDescriptor(customDescriptor),
      m_delegate(std::move(delegate)),
      m_actionFlag(actionFlag)
{
}

AddPopupEvent::~AddPopupEvent() = default;

wxEvent* AddPopupEvent::Clone() const
{
    return new AddPopupEvent(*this);
}

} // namespace UIKit

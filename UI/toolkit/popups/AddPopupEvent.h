#pragma once
#include "module/Export.h"
// A request for one popup, made on any thread and posted to the popup
// manager, which opens the window on the GUI thread. Copies share the
// parameter and the delegate.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "lists/IDelegate.h"
#include "navigation/IStateParameter.h"

#include <wx/event.h>

namespace UIKit {

class UIKIT_API AddPopupEvent : public wxCommandEvent {
public:
    AddPopupEvent(wxEventType type, const TString<wchar_t>& message, bool autoClose,
                  const TString<wchar_t>& actionLabel, const TString<wchar_t>& actionSequence,
                  const TString<wchar_t>& actionState, Toolkit::smart_ptr<IStateParameter> actionParameter,
                  const TString<wchar_t>& customDescriptor, Toolkit::smart_ptr<IDelegate> delegate,
                  bool actionFlag);
    ~AddPopupEvent() override;

    wxEvent* Clone() const override;

    const TString<wchar_t>& GetMessage() const { return m_message; }
    bool IsAutoClose() const { return m_autoClose; }
    const TString<wchar_t>& GetActionLabel() const { return m_actionLabel; }
    const TString<wchar_t>& GetActionSequence() const { return m_actionSequence; }
    const TString<wchar_t>& GetActionState() const { return m_actionState; }
    const Toolkit::smart_ptr<IStateParameter>& GetActionParameter() const { return m_actionParameter; }
    const TString<wchar_t>& GetCustomDescriptor() const { return m_customDescriptor; }
    const Toolkit::smart_ptr<IDelegate>& GetDelegate() const { return m_delegate; }
    bool GetActionFlag() const { return m_actionFlag; }

private:
    TString<wchar_t> m_message;
    bool m_autoClose;
    TString<wchar_t> m_actionLabel;
    TString<wchar_t> m_actionSequence;
    TString<wchar_t> m_actionState;
    Toolkit::smart_ptr<IStateParameter> m_actionParameter;
    TString<wchar_t> m_customDescriptor;
    Toolkit::smart_ptr<IDelegate> m_delegate;
    bool m_actionFlag;
};

} // namespace UIKit

#pragma once
#include "module/Export.h"
// What the user sees of one step of a sequence, and how it reacts. Concrete
// states name their sequence and themselves when they are made; overrides of
// Activate and Deactivate call the base first, then show or hide their
// screen.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "navigation/IStateParameter.h"

namespace UIKit {

class UIKIT_API IState {
public:
    explicit IState(const TString<wchar_t>& sequenceName = {}, const TString<wchar_t>& stateName = {});
    virtual ~IState();

    // Marks the state active and keeps what it was given; true.
    virtual bool Activate(bool visible, Toolkit::smart_ptr<IStateParameter> parameter);
    // Marks the state inactive and hidden and drops the parameter; true.
    virtual bool Deactivate();

    // Whether the current sequence is the one this state belongs to.
    bool IsActive() const;

    const TString<wchar_t>& GetSequenceName() const { return m_sequenceName; }
    const TString<wchar_t>& GetStateName() const { return m_stateName; }
    bool IsVisible() const { return m_visible; }
    // True between Activate and Deactivate.
    bool IsActivated() const { return m_active; }
    const Toolkit::smart_ptr<IStateParameter>& GetParameter() const { return m_parameter; }

protected:
    TString<wchar_t> m_sequenceName;
    TString<wchar_t> m_stateName;
    bool m_visible = false;
    bool m_active = false;
    Toolkit::smart_ptr<IStateParameter> m_parameter;
};

} // namespace UIKit

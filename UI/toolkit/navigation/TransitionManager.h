#pragma once
#include "module/Export.h"
// The transitions by name (exact, case-sensitive). Plug-ins and library
// parts register theirs at start-up; the last registration of a name wins.
// GUI thread only.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "module/Singleton.h"
#include "navigation/ITransition.h"

#include <map>

namespace UIKit {

class UIKIT_API TransitionManager : public Singleton<TransitionManager> {
public:
    // Registers the transition, replacing (and logging) an earlier one.
    void Add(const TString<wchar_t>& name, Toolkit::smart_ptr<ITransition> transition);
    // Forgets the name; silent when it is not registered.
    void Remove(const TString<wchar_t>& name);
    // The transition of exactly that name, or null (logged).
    Toolkit::smart_ptr<ITransition> Get(const TString<wchar_t>& name) const;
    // Whether the name is registered; logs nothing.
    bool Has(const TString<wchar_t>& name) const { return m_transitions.count(name) != 0; }

private:
    std::map<TString<wchar_t>, Toolkit::smart_ptr<ITransition>> m_transitions;
};

} // namespace UIKit

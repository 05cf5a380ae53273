#include "navigation/TransitionManager.h"

#include "Toolkit/ILogger.h"

namespace UIKit {

void TransitionManager::Add(const TString<wchar_t>& name, Toolkit::smart_ptr<ITransition> transition)
{
    const auto it = m_transitions.find(name);
    if (it != m_transitions.end()) {
        TK_LOG(Toolkit::LogInfo) << "Transition [" << name << "] already exists : overrinding";
        m_transitions.erase(it);
    }
    m_transitions.emplace(name, std::move(transition));
}

void TransitionManager::Remove(const TString<wchar_t>& name)
{
    m_transitions.erase(name);
}

Toolkit::smart_ptr<ITransition> TransitionManager::Get(const TString<wchar_t>& name) const
{
    const auto it = m_transitions.find(name);
    if (it == m_transitions.end()) {
        TK_LOG(Toolkit::LogError) << "Transition [" << name << "] not found!";
        return {};
    }
    return it->second;
}

} // namespace UIKit

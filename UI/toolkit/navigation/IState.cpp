#include "navigation/IState.h"

#include "navigation/Sequence.h"
#include "navigation/SequenceManager.h"

namespace UIKit {

IState::IState(const TString<wchar_t>& sequenceName, const TString<wchar_t>& stateName)
    : m_sequenceName(sequenceName), m_stateName(stateName)
{
}

IState::~IState() = default;

bool IState::Activate(bool visible, Toolkit::smart_ptr<IStateParameter> parameter)
{
    m_active = true;
    m_visible = visible;
    m_parameter = std::move(parameter);
    return true;
}

bool IState::Deactivate()
{
    m_active = false;
    m_visible = false;
    m_parameter.reset();
    return true;
}

bool IState::IsActive() const
{
    const auto manager = SequenceManager::Instance();
    const auto current = manager ? manager->GetCurrentSequence() : Toolkit::smart_ptr<Sequence>();
    return current && current->GetName() == m_sequenceName;
}

} // namespace UIKit

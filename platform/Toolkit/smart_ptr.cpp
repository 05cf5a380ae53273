#include "Toolkit/smart_ptr.h"

namespace Toolkit::detail {

std::mutex& customActionLock()
{
    static std::mutex m;
    return m;
}

void ActionDeleter::operator()(void* object) const
{
    auto* chain = m_pChain;
    smart_ptr_custom_action::RunBefore(chain);
    m_destroy(object);
    smart_ptr_custom_action::RunAfterAndDelete(chain);
}

void ActionDeleter::Add(smart_ptr_custom_action* action)
{
    std::lock_guard lock(customActionLock());
    if (m_pChain)
        m_pChain->Add(action);
    else
        m_pChain = action;
}

std::shared_ptr<void> MakeOwner(void* object, Destroy destroy)
{
    return std::shared_ptr<void>(object, ActionDeleter(destroy));
}

} // namespace Toolkit::detail

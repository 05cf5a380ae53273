#include "Toolkit/smart_ptr_custom_action.h"

namespace Toolkit {

smart_ptr_custom_action::~smart_ptr_custom_action() = default;

void smart_ptr_custom_action::Add(smart_ptr_custom_action* action)
{
    auto* last = this;
    while (last->m_pNext)
        last = last->m_pNext;
    last->m_pNext = action;
}

void smart_ptr_custom_action::RunBefore(smart_ptr_custom_action* head)
{
    for (auto* a = head; a; a = a->m_pNext)
        a->BeforeRelease();
}

void smart_ptr_custom_action::RunAfterAndDelete(smart_ptr_custom_action* head)
{
    while (head) {
        auto* next = head->m_pNext;
        head->m_pNext = nullptr;
        head->AfterRelease();
        delete head;
        head = next;
    }
}

} // namespace Toolkit

#pragma once
// A hook attached to the ownership of a shared object: BeforeRelease runs
// just before the object is deleted, AfterRelease just after. Actions form
// a chain (Add appends); the chain is deleted with the object.

namespace Toolkit {

class smart_ptr_custom_action {
public:
    smart_ptr_custom_action() = default;
    smart_ptr_custom_action(const smart_ptr_custom_action&) = delete;
    smart_ptr_custom_action& operator=(const smart_ptr_custom_action&) = delete;
    virtual ~smart_ptr_custom_action();

    virtual void BeforeRelease() {}
    virtual void AfterRelease() {}

    // Appends an action at the end of this chain and takes ownership of it.
    void Add(smart_ptr_custom_action* action);
    smart_ptr_custom_action* Next() const { return m_pNext; }

    // Runs BeforeRelease on every action of the chain, in order.
    static void RunBefore(smart_ptr_custom_action* head);
    // Runs AfterRelease on every action and deletes it, in order.
    static void RunAfterAndDelete(smart_ptr_custom_action* head);

private:
    smart_ptr_custom_action* m_pNext = nullptr;
};

} // namespace Toolkit

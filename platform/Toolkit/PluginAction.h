#pragma once
// Keeps a plug-in's shared library loaded exactly as long as an object
// whose code lives in it: attached to the object's count block, the action
// closes its reference to the library when the object has been deleted.
//
// The loader attaches one to each plug-in object it accepts. Registries
// that keep objects made by plug-ins (control generators and the like)
// attach one through KeepLoaded: the plug-in object may go first (the
// plug-in manager is released before some of them), and unmapping the
// library then would leave those objects with destructors and virtual
// functions pointing into nothing. The loader counts references, so the
// library goes only when the last of these objects has gone.
#include "Toolkit/DynamicLibrary.h"
#include "Toolkit/smart_ptr.h"
#include "Toolkit/smart_ptr_custom_action.h"

#include <type_traits>

namespace Toolkit {

class PluginAction : public smart_ptr_custom_action {
public:
    // Takes over a library reference (a detached DynamicLibrary handle).
    explicit PluginAction(void* handle) : m_handle(handle) {}
    ~PluginAction() override;

    void* GetHandle() const { return m_handle; }

    // Attaches an action holding the reference to the object's count block;
    // false, the reference closed at once, when the pointer has no block of
    // its own to attach to.
    template <class T>
    static bool Attach(const smart_ptr<T>& object, void* handle);

    // Keeps the library holding the object's code (found through its
    // virtual table) loaded while the object lives; false for a null
    // object or code that no loaded library holds.
    template <class T>
    static bool KeepLoaded(const smart_ptr<T>& object);

private:
    void* m_handle;
};

template <class T>
bool PluginAction::Attach(const smart_ptr<T>& object, void* handle)
{
    return handle && object.AddCustomAction(new PluginAction(handle));
}

template <class T>
bool PluginAction::KeepLoaded(const smart_ptr<T>& object)
{
    static_assert(std::is_polymorphic_v<T>, "only objects with a virtual table carry their library's code");
    if (!object)
        return false;
    // The most derived object starts with its virtual-table pointer.
    const void* complete = dynamic_cast<const void*>(object.get());
    return Attach(object, DynamicLibrary::OpenContaining(*static_cast<const void* const*>(complete)));
}

} // namespace Toolkit

#pragma once
// Reference-counted shared ownership for every shared object of the suite.
// Built on std::shared_ptr (atomic counting, one control block per object);
// the deleter stored in the control block carries the chain of custom
// actions that run around the deletion. A null pointer owns no block.
#include "Toolkit/smart_ptr_custom_action.h"

#include <cstddef>
#include <memory>
#include <mutex>
#include <type_traits>
#include <utility>

namespace Toolkit {

namespace detail {

// Guards additions to action chains; additions are rare (plug-in loading),
// so one process-wide lock is enough.
std::mutex& customActionLock();

// Deletes an object as the type it was made with.
using Destroy = void (*)(void*);
template <class Y>
void destroyAs(void* object)
{
    delete static_cast<Y*>(object);
}

class ActionDeleter {
public:
    explicit ActionDeleter(Destroy destroy) : m_destroy(destroy) {}
    void operator()(void* object) const;
    void Add(smart_ptr_custom_action* action);

private:
    Destroy m_destroy;
    smart_ptr_custom_action* m_pChain = nullptr;
};

// Makes the count block of an object. Its code (release, deletion, the
// action chain) lives in this library, never in the shared library that
// made the object: an action may unload that library (a plug-in's), and
// the release must not return into code that has just been unmapped.
std::shared_ptr<void> MakeOwner(void* object, Destroy destroy);

} // namespace detail

template <class T>
class smart_ptr {
public:
    using element_type = T;

    smart_ptr() noexcept = default;
    smart_ptr(std::nullptr_t) noexcept {}
    // Takes ownership of a heap object (count 1). The object is deleted as
    // the type it was made with, so interfaces need no virtual destructor.
    template <class Y, class = std::enable_if_t<std::is_convertible_v<Y*, T*>>>
    explicit smart_ptr(Y* object) : m_p(own(object)) {}

    template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    smart_ptr(const smart_ptr<U>& other) noexcept : m_p(other.shared()) {}
    template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    smart_ptr(smart_ptr<U>&& other) noexcept : m_p(std::move(other).shared()) {}

    T* get() const noexcept { return m_p.get(); }
    T* operator->() const noexcept { return m_p.get(); }
    T& operator*() const noexcept { return *m_p; }
    explicit operator bool() const noexcept { return bool(m_p); }
    bool IsNull() const noexcept { return !m_p; }

    // Drops this reference; the pointer becomes null.
    void ReleaseRef() noexcept { m_p.reset(); }
    void reset() noexcept { m_p.reset(); }
    template <class Y>
    void reset(Y* object) { *this = smart_ptr(object); }

    long GetRefCount() const noexcept { return m_p.use_count(); }

    // Shares ownership when the object is a U, otherwise gives null.
    template <class U>
    smart_ptr<U> DynamicCast() const
    {
        return smart_ptr<U>(std::dynamic_pointer_cast<U>(m_p));
    }
    template <class U>
    smart_ptr<U> StaticCast() const
    {
        return smart_ptr<U>(std::static_pointer_cast<U>(m_p));
    }

    // Attaches an action to the object's ownership and takes ownership of
    // the action. Returns false (and deletes the action) when the pointer is
    // null or was not made by smart_ptr.
    bool AddCustomAction(smart_ptr_custom_action* action) const
    {
        auto* deleter = std::get_deleter<detail::ActionDeleter>(m_p);
        if (!deleter) {
            delete action;
            return false;
        }
        deleter->Add(action);
        return true;
    }

    const std::shared_ptr<T>& shared() const& noexcept { return m_p; }
    std::shared_ptr<T> shared() && noexcept { return std::move(m_p); }
    explicit smart_ptr(std::shared_ptr<T> p) noexcept : m_p(std::move(p)) {}

    template <class U>
    bool operator==(const smart_ptr<U>& o) const noexcept { return get() == o.get(); }
    bool operator==(std::nullptr_t) const noexcept { return !m_p; }
    template <class U>
    bool operator<(const smart_ptr<U>& o) const noexcept { return get() < o.get(); }

private:
    // An object that keeps a weak reference to itself needs the standard
    // count block, which links that reference; its release code is then
    // generated where the object is made. Every other object gets the block
    // made in this library (see MakeOwner).
    template <class Y>
    static std::shared_ptr<T> own(Y* object)
    {
        if constexpr (requires(Y* y) { y->weak_from_this(); })
            return std::shared_ptr<T>(object, detail::ActionDeleter(&detail::destroyAs<Y>));
        else
            return std::shared_ptr<T>(detail::MakeOwner(const_cast<void*>(static_cast<const void*>(object)),
                                                        &detail::destroyAs<Y>),
                                      object);
    }

    std::shared_ptr<T> m_p;
};

template <class T, class... Args>
smart_ptr<T> make_smart(Args&&... args)
{
    return smart_ptr<T>(new T(std::forward<Args>(args)...));
}

} // namespace Toolkit

template <class T>
struct std::hash<Toolkit::smart_ptr<T>> {
    size_t operator()(const Toolkit::smart_ptr<T>& p) const noexcept { return std::hash<T*>()(p.get()); }
};

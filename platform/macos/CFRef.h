#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <utility>

namespace tessivo {

/// One owned reference to an object of the system, given back when the owner goes. For what a function with
/// Create or Copy in its name hands out; what a Get function gives is never put in one. Any thread.
template <class Ref>
class CFRef final {
public:
    CFRef() = default;
    explicit CFRef(Ref owned) : m_ref(owned) {}
    CFRef(CFRef&& other) noexcept : m_ref(std::exchange(other.m_ref, nullptr)) {}
    CFRef& operator=(CFRef other) noexcept {
        std::swap(m_ref, other.m_ref);
        return *this;
    }
    ~CFRef() {
        if (m_ref) CFRelease(m_ref);
    }

    Ref get() const { return m_ref; }
    explicit operator bool() const { return m_ref != nullptr; }
    /// Gives the reference away.
    Ref release() { return std::exchange(m_ref, nullptr); }
    /// Where a function that answers through a pointer puts its object. For an empty owner alone.
    Ref* out() { return &m_ref; }

private:
    Ref m_ref = nullptr;
};

} // namespace tessivo

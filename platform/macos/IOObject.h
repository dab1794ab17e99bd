#pragma once

#include <IOKit/IOKitLib.h>

#include <utility>

namespace tessivo {

/// One owned handle of the hardware registry: an entry or an iterator. Any thread.
class IOObject final {
public:
    IOObject() = default;
    explicit IOObject(io_object_t owned) : m_object(owned) {}
    IOObject(IOObject&& other) noexcept : m_object(std::exchange(other.m_object, IO_OBJECT_NULL)) {}
    IOObject& operator=(IOObject other) noexcept {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~IOObject() {
        if (m_object != IO_OBJECT_NULL) IOObjectRelease(m_object);
    }

    io_object_t get() const { return m_object; }
    explicit operator bool() const { return m_object != IO_OBJECT_NULL; }
    /// Where a function that answers through a pointer puts its handle. For an empty owner alone.
    io_object_t* out() { return &m_object; }

private:
    io_object_t m_object = IO_OBJECT_NULL;
};

} // namespace tessivo

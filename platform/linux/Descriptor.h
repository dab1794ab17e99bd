#pragma once

#include <unistd.h>
#include <utility>

namespace tessivo {

/// A file descriptor that is closed when its owner goes; negative when there is none.
class Descriptor final {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor() { reset(); }

    operator int() const { return m_number; }
    void reset() {
        if (m_number >= 0) ::close(m_number);
        m_number = -1;
    }

private:
    int m_number = -1;
};

} // namespace tessivo

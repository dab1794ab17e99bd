#include "kit/support/Uuid.h"

#include <random>

namespace tessivo {

namespace {

constexpr std::string_view digits = "0123456789ABCDEF";

constexpr bool isDashPlace(std::size_t place) {
    return place == 8 || place == 13 || place == 18 || place == 23;
}

int nibble(char letter) {
    if (letter >= '0' && letter <= '9') return letter - '0';
    if (letter >= 'A' && letter <= 'F') return letter - 'A' + 10;
    if (letter >= 'a' && letter <= 'f') return letter - 'a' + 10;
    return -1;
}

} // namespace

Uuid Uuid::random() {
    std::random_device source;
    Uuid uuid;
    for (std::size_t i = 0; i < uuid.bytes.size(); i += 4) {
        const std::uint32_t word = source();
        for (std::size_t k = 0; k < 4; ++k)
            uuid.bytes[i + k] = std::uint8_t(word >> (8 * k));
    }
    uuid.bytes[6] = std::uint8_t((uuid.bytes[6] & 0x0F) | 0x40);
    uuid.bytes[8] = std::uint8_t((uuid.bytes[8] & 0x3F) | 0x80);
    return uuid;
}

std::optional<Uuid> Uuid::parse(std::string_view text) {
    if (text.size() != 36) return std::nullopt;
    Uuid uuid;
    std::size_t filled = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isDashPlace(i)) {
            if (text[i] != '-') return std::nullopt;
            continue;
        }
        const int value = nibble(text[i]);
        if (value < 0) return std::nullopt;
        std::uint8_t& byte = uuid.bytes[filled / 2];
        byte = std::uint8_t(byte << 4 | value);
        ++filled;
    }
    return uuid;
}

std::string Uuid::text() const {
    std::string text;
    text.reserve(36);
    for (std::uint8_t byte : bytes) {
        if (isDashPlace(text.size())) text += '-';
        text += digits[byte >> 4];
        text += digits[byte & 0x0F];
    }
    return text;
}

} // namespace tessivo

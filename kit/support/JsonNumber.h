#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// What the digits of a JSON number say; whoever wants a whole number or a fraction asks for it. Pure, any
/// thread. All but the first take a well-formed token.
namespace tessivo::Json::Number {

/// Whether the token is a number by the grammar of JSON, whatever its size.
bool isWellFormed(std::string_view token);

/// The number of a token that is digits alone, as nearly all are; nothing for any other and for more digits
/// than surely fit.
inline std::optional<std::uint64_t> plainWhole(std::string_view token) {
    if (token.size() > 18 || (token.size() > 1 && token.front() == '0')) return std::nullopt;
    std::uint64_t number = 0;
    for (const char letter : token) {
        if (letter < '0' || letter > '9') return std::nullopt;
        number = number * 10 + std::uint64_t(letter - '0');
    }
    return number;
}

/// The plain digits of a whole number, exact however it is written ("2000" of "2e3", "-5" of "-5.0"), at
/// least up to 64 bits: of a larger one they only tell that it is. Nothing for one that isn't whole.
std::optional<std::string> wholeDigits(std::string_view token);

/// The double nearest to it, zero for what is too small; nothing beyond the largest.
std::optional<double> toDouble(std::string_view token);

} // namespace tessivo::Json::Number

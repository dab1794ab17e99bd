#include "kit/support/JsonNumber.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <simdjson.h>

namespace tessivo::Json::Number {

namespace {

/// Digits that no 64 bits hold.
constexpr std::int64_t mostDigits = 21;

bool isDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

std::size_t digitsFrom(std::string_view token, std::size_t at) {
    while (at < token.size() && isDigit(token[at]))
        ++at;
    return at;
}

/// The number as its digits, without zeros at either end, and the power of ten that they are multiplied by.
/// Zero has no digits.
struct Decimal {
    explicit Decimal(std::string_view token) : isNegative(token.starts_with('-')) {
        const std::size_t behind = std::min(token.find_first_of("eE"), token.size());
        std::int64_t fraction = 0;
        bool isFraction = false;
        for (const char letter : token.substr(0, behind)) {
            if (letter == '.') isFraction = true;
            if (!isDigit(letter)) continue;
            fraction += isFraction;
            if (letter != '0' || !digits.empty()) digits += letter;
        }
        power = exponentOf(token.substr(behind)) - fraction;
        const std::size_t zeros = digits.size() - (digits.find_last_not_of('0') + 1);
        digits.resize(digits.size() - zeros);
        power += std::int64_t(zeros);
    }

    bool isNegative;
    std::string digits;
    std::int64_t power = 0;

private:
    /// Of "e+12" and the like. What doesn't fit outweighs all digits there can be.
    static std::int64_t exponentOf(std::string_view part) {
        constexpr std::int64_t enormous = std::int64_t(1) << 40;
        if (part.empty()) return 0;
        part.remove_prefix(1);
        if (part.starts_with('+')) part.remove_prefix(1);
        std::int64_t exponent = 0;
        if (std::from_chars(part.data(), part.data() + part.size(), exponent).ec != std::errc())
            exponent = part.starts_with('-') ? -enormous : enormous;
        return std::clamp(exponent, -enormous, enormous);
    }
};

} // namespace

bool isWellFormed(std::string_view token) {
    std::size_t at = token.starts_with('-') ? 1 : 0;
    const std::size_t whole = digitsFrom(token, at);
    if (whole == at || (token[at] == '0' && whole > at + 1)) return false;
    at = whole;
    if (at < token.size() && token[at] == '.') {
        const std::size_t end = digitsFrom(token, at + 1);
        if (end == at + 1) return false;
        at = end;
    }
    if (at < token.size() && (token[at] == 'e' || token[at] == 'E')) {
        ++at;
        if (at < token.size() && (token[at] == '+' || token[at] == '-')) ++at;
        const std::size_t end = digitsFrom(token, at);
        if (end == at) return false;
        at = end;
    }
    return at == token.size();
}

std::optional<std::string> wholeDigits(std::string_view token) {
    Decimal decimal(token);
    if (decimal.digits.empty()) return "0";
    if (decimal.power < 0) return std::nullopt;
    decimal.digits.append(std::size_t(std::min(decimal.power, mostDigits)), '0');
    return decimal.isNegative ? '-' + decimal.digits : decimal.digits;
}

std::optional<double> toDouble(std::string_view token) {
    // Some systems' libraries can't read a double. Without an exponent a whole number would have to fit in 64
    // bits.
    std::string text(token);
    if (text.find_first_of(".eE") == text.npos) text += "e0";
    static thread_local simdjson::dom::parser parser;
    double number = 0;
    if (parser.parse(text).get(number) == simdjson::SUCCESS) return number;
    const Decimal decimal(token);
    if (std::int64_t(decimal.digits.size()) + decimal.power > 0) return std::nullopt;
    return decimal.isNegative ? -0.0 : 0.0;
}

} // namespace tessivo::Json::Number

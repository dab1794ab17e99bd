#pragma once

#include <optional>
#include <string>
#include <string_view>

/// What the digits of a JSON number say; whoever wants a whole number or a fraction asks for it. Pure, any
/// thread. All but the first take a well-formed token.
namespace tessivo::Json::Number {

/// Whether the token is a number by the grammar of JSON, whatever its size.
bool isWellFormed(std::string_view token);

/// The plain digits of a whole number, exact however it is written ("2000" of "2e3", "-5" of "-5.0"), at
/// least up to 64 bits: of a larger one they only tell that it is. Nothing for one that isn't whole.
std::optional<std::string> wholeDigits(std::string_view token);

/// The double nearest to it, zero for what is too small; nothing beyond the largest.
std::optional<double> toDouble(std::string_view token);

} // namespace tessivo::Json::Number

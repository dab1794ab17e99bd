#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Unicode text operations over UTF-8. Invalid sequences never fail: they count as U+FFFD.
/// Pure functions, any thread.
namespace tessivo::Text {

/// Locale-independent case forms (a final sigma is lowered by its context).
std::string lowercased(std::string_view text);
std::string uppercased(std::string_view text);

/// Without white space and line breaks at both ends (Unicode white space, U+0085, U+2028 ... included).
std::string trimmed(std::string_view text);

/// Without spaces and tabs at both ends; line breaks stay.
std::string trimmedBlanks(std::string_view text);

/// Bytes as valid UTF-8: each invalid sequence replaced by U+FFFD.
std::string repaired(std::string_view bytes);

/// Lines split at U+000A, U+000B, U+000C, U+000D, U+0085, U+2028, U+2029; empty lines dropped.
std::vector<std::string> lines(std::string_view text);

/// Each run of Unicode white space as a single blank, none at either end.
std::string collapsed(std::string_view text);

/// How many user-perceived characters the text has; CRLF and an emoji family count as one.
std::size_t characterCount(std::string_view text);

/// Whether no user-perceived character reaches over that place. Both ends are boundaries.
bool isBoundary(std::string_view text, std::size_t at);

/// Whether the last, or the first, user-perceived character of the text is a letter or a number in the
/// Unicode sense, whatever marks it carries; marks that the text begins with are another character's. An
/// empty text has neither.
bool endsWithLetterOrNumber(std::string_view before);
bool beginsWithLetterOrNumber(std::string_view after);

/// A plain search and replacement of every occurrence, left to right.
std::string replaced(std::string_view text, std::string_view what, std::string_view with);

/// The pieces with the separator between them.
std::string joined(const std::vector<std::string>& pieces, std::string_view separator);

/// A whole number as the user's number formats have it: "4,103" in US English, "4103" but "10.000" in
/// Spanish. A system without a locale groups as US English does.
std::string grouped(std::int64_t number);

/// Rounded half away from zero to a whole number; "%.1f" for tenths. Neither knows a locale.
std::string whole(double value);
std::string tenths(double value);

/// A file name's or a label's safe form on one line: control characters and line breaks become blanks.
std::string singleLine(std::string_view text);

} // namespace tessivo::Text

#include "kit/report/BatteryFigures.h"

#include "kit/support/CodePoints.h"

#include <unicode/uchar.h>

namespace tessivo {
namespace {

constexpr UChar32 none = 0;

/// What the languages of the world put between groups of digits.
bool isSeparator(UChar32 point) {
    // Also the no-break, thin and narrow blanks, the apostrophe of print, the Arabic mark and the wide comma.
    constexpr std::u32string_view separators = U",.' \u00A0\u2009\u2019\u202F\u066C\uFF0C";
    return separators.find(char32_t(point)) != separators.npos;
}

/// The text between two others, of which the first is searched from the front; nothing where one is missing.
std::optional<std::string_view> between(std::string_view text, std::string_view from, std::string_view to) {
    const std::size_t start = text.find(from);
    if (start == std::string_view::npos) return std::nullopt;
    const std::size_t begin = start + from.size();
    const std::size_t end = text.find(to, begin);
    if (end == std::string_view::npos) return std::nullopt;
    return text.substr(begin, end - begin);
}

/// The number before " charge cycle", which follows the last comma and blank before it.
std::optional<std::string_view> cyclesIn(std::string_view summary) {
    const std::size_t end = summary.find(" charge cycle");
    if (end == std::string_view::npos) return std::nullopt;
    const std::size_t comma = summary.rfind(", ", end);
    if (comma == std::string_view::npos) return std::nullopt;
    return summary.substr(comma + 2, end - comma - 2);
}

/// Reads the number in a piece of the summary, and where there is one takes it out of the words.
std::optional<std::int64_t> taken(std::optional<std::string_view> piece, std::string_view summary,
                                  std::string& words, std::size_t& copied) {
    if (!piece) return std::nullopt;
    const auto number = BatteryFigures::wholeNumber(*piece);
    const auto at = std::size_t(piece->data() - summary.data());
    if (!number || at < copied) return number;
    words.append(summary, copied, at - copied);
    copied = at + piece->size();
    return number;
}

} // namespace

std::optional<std::int64_t> BatteryFigures::wholeNumber(std::string_view text) {
    std::int64_t value = 0;
    UChar32 separator = none;
    UChar32 zero = none; // of the digits in use
    int inGroup = 0, groups = 0;
    for (std::size_t at = 0; at < text.size();) {
        const UChar32 point = CodePoints::next(text, at);
        const std::int32_t digit = u_charDigitValue(point);
        if (digit < 0) {
            // Groups are of three digits; only the first is shorter, and in India all but the last have two.
            const bool fits = groups == 0 ? inGroup >= 1 && inGroup <= 3 : inGroup == 2 || inGroup == 3;
            if (!isSeparator(point) || !fits || (separator != none && point != separator))
                return std::nullopt;
            separator = point;
            ++groups;
            inGroup = 0;
            continue;
        }
        if (zero == none) zero = point - digit;
        if (point - digit != zero || __builtin_mul_overflow(value, 10, &value) ||
            __builtin_add_overflow(value, digit, &value))
            return std::nullopt;
        ++inGroup;
    }
    if (groups == 0 ? inGroup == 0 : inGroup != 3) return std::nullopt;
    return value;
}

BatteryFigures BatteryFigures::read(const TestResult& result) {
    BatteryFigures figures;
    const std::string_view summary = result.summary;
    std::size_t copied = 0;
    const auto percent =
        summary.starts_with("Holds ") ? between(summary, "Holds ", "% of its charge") : std::nullopt;
    figures.percent = taken(percent, summary, figures.words, copied);
    const auto cycles = cyclesIn(summary);
    figures.cycles = taken(cycles, summary, figures.words, copied);
    figures.words.append(summary, copied);
    for (const std::string_view detail : result.details) {
        if (figures.percent && figures.cycles) break;
        // A summary that tells a figure which can't be read isn't corrected by a detail.
        if (!percent && !figures.percent && detail.starts_with("Maximum capacity: "))
            if (const auto piece = between(detail, ": ", "%")) figures.percent = wholeNumber(*piece);
        if (!cycles && !figures.cycles && detail.starts_with("Charge cycles: ")) {
            const std::string_view rest = detail.substr(std::string_view("Charge cycles: ").size());
            figures.cycles = wholeNumber(rest.substr(0, rest.find(" (")));
        }
    }
    return figures;
}

} // namespace tessivo

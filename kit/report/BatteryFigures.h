#pragma once

#include "kit/vocabulary/TestResult.h"

#include <cstdint>
#include <string_view>

namespace tessivo {

/// The two numbers in a battery's result, whatever language's digits and grouping it was written with: from
/// the summary, or where that doesn't tell them, from the details. Pure, any thread; linear in the text.
struct BatteryFigures {
    std::optional<std::int64_t> percent; ///< of the charge when new; absent where it can't be read
    std::optional<std::int64_t> cycles;
    std::string words; ///< the summary without the numbers that were read in it

    static BatteryFigures read(const TestResult& result);

    /// A whole number of 0 or more: "1234", "1,234", "1.234", "1 234", "12,34,567", "١٬٢٣٤". Nothing for
    /// any other text, such as a fraction, groups of another size, or more than 64 bits hold.
    static std::optional<std::int64_t> wholeNumber(std::string_view text);
};

} // namespace tessivo

#pragma once

#include <cstdint>
#include <string>

/// The program's one way of writing sizes. Pure, any thread.
namespace tessivo::ByteText {

/// The short number form: whole from 100 upward or within 0.05 of a whole number, else one decimal.
std::string number(double value);

/// A size in table units: "512 GB", "1.5 TB".
std::string sizeLabel(std::int64_t size);

/// A byte count: decimal "245 GB" or "1.1 TB"; binary (memory) always in GB.
std::string bytes(std::int64_t count, bool binary);

} // namespace tessivo::ByteText

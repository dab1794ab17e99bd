#pragma once

#include "kit/vocabulary/TestResult.h"

#include <string>

namespace tessivo {

/// A result as text, so that a table can show what a person would read:
/// "works: Tone heard clearly | Speaker: heard | note: ...".
inline std::string printed(const TestResult& result) {
    std::string text = std::string(rawValue(result.status)) + ": " + result.summary;
    for (const std::string& detail : result.details)
        text += " | " + detail;
    if (result.note) text += " | note: " + *result.note;
    return text;
}

} // namespace tessivo

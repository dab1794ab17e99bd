#pragma once

#include <QString>

#include <string_view>

namespace tessivo {

/// A text of the kit as Qt has it.
inline QString qt(std::string_view text) {
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

} // namespace tessivo

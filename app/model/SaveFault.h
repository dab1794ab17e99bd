#pragma once

#include <system_error>

namespace tessivo {

/// Why something couldn't be written, as far as a person can do something about it.
enum class SaveFault { noRoom, notAllowed, noFont, other };

/// What the system's error comes down to.
SaveFault saveFault(const std::error_code& error);
SaveFault saveFault(const std::exception& error);
/// Within a sentence: "there is no room on the disk".
const char* cause(SaveFault fault);

} // namespace tessivo

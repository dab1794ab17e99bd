#include "kit/hardware/EnrollmentStatus.h"

#include "kit/support/Text.h"

namespace tessivo {

std::optional<EnrollmentStatus> EnrollmentStatus::parse(std::string_view output) {
    std::optional<bool> viaDEP;
    std::optional<bool> mdm;
    std::string detail;
    for (const std::string& line : Text::lines(Text::repaired(output))) {
        const std::size_t colon = line.find(':');
        if (colon == std::string::npos || colon == 0 || colon + 1 == line.size()) continue;
        const std::string key = Text::lowercased(Text::trimmedBlanks(line.substr(0, colon)));
        const std::string value = Text::trimmedBlanks(line.substr(colon + 1));
        const bool isYes = Text::lowercased(value).starts_with("yes");
        if (key == "enrolled via dep") {
            viaDEP = isYes;
        } else if (key == "mdm enrollment") {
            mdm = isYes;
            detail = value;
        }
    }
    if (!viaDEP || !mdm) return std::nullopt;
    return EnrollmentStatus{*viaDEP, *mdm, detail};
}

} // namespace tessivo

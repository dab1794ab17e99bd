#include "app/readers/Readers.h"

#include "kit/support/Text.h"

namespace tessivo {

std::vector<std::string> enrollmentArguments() {
    return {"status", "-type", "enrollment"};
}

std::optional<EnrollmentStatus> readEnrollmentStatus(const SystemTools& tools, std::stop_token stop) {
    const auto run = tools.run(enrollmentTool, enrollmentArguments(), std::move(stop));
    if (!run || run->exitStatus != 0) return std::nullopt;
    return EnrollmentStatus::parse(Text::repaired(run->standardOutput));
}

} // namespace tessivo

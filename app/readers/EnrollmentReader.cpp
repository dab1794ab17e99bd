#include "app/readers/Readers.h"

#include "kit/support/Text.h"

namespace tessivo {

std::vector<std::string> enrollmentArguments() {
    return {"status", "-type", "enrollment"};
}

std::optional<EnrollmentStatus> readEnrollmentStatus(const SystemTools& tools, const StopToken& stop) {
    const auto run = tools.run(enrollmentTool, enrollmentArguments(), stop);
    if (!run || run->exitStatus != 0) return std::nullopt;
    return EnrollmentStatus::parse(Text::repaired(run->standardOutput));
}

} // namespace tessivo

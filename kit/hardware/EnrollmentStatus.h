#pragma once

#include "kit/support/Describe.h"

#include <optional>
#include <string>
#include <string_view>

namespace tessivo {

/// What the system's tool said of device management.
struct EnrollmentStatus {
    bool enrolledViaDEP = false;
    bool mdmEnrolled = false;
    std::string mdmDetail; ///< the value of the "MDM enrollment" line as printed

    bool isManaged() const { return enrolledViaDEP || mdmEnrolled; }

    /// Reads the tool's output; nothing unless both answers stand in it.
    static std::optional<EnrollmentStatus> parse(std::string_view output);

    bool operator==(const EnrollmentStatus&) const = default;
};
BOOST_DESCRIBE_STRUCT(EnrollmentStatus, (), (enrolledViaDEP, mdmEnrolled, mdmDetail))

} // namespace tessivo

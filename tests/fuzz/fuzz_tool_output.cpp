// Any bytes as the output of the enrollment tool.
#include "kit/hardware/EnrollmentStatus.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view output(reinterpret_cast<const char*>(data), size);
    const auto status = tessivo::EnrollmentStatus::parse(output);
    // An answer never comes out of nothing.
    if (status && output.find(':') == std::string_view::npos) std::abort();
    return 0;
}

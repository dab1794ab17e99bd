// Any bytes as a stored session: a session that survives being written and judged, or a fault with a reason.
#include "kit/report/ReportAssembler.h"
#include "kit/support/Json.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessivo;
    try {
        const auto state = SessionState::decode({reinterpret_cast<const char*>(data), size});
        if (SessionState::decode(state.encode()) != state) std::abort();
        ReportAssembler::make(state, Date{}, "1.0", "");
    } catch (const DecodingError& error) {
        if (error.what()[0] == '\0') std::abort();
    }
    return 0;
}

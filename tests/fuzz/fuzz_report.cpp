// Any bytes as a report file: a report that survives being written, or a fault with a reason.
#include "kit/report/HistoryStore.h"
#include "kit/report/ReportText.h"
#include "kit/support/Json.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessivo;
    try {
        const auto report = HistoryStore::decode({reinterpret_cast<const char*>(data), size});
        if (HistoryStore::decode(HistoryStore::encode(report)) != report) std::abort();
        ReportText::text(report, "UTC");
    } catch (const DecodingError& error) {
        if (error.what()[0] == '\0') std::abort();
    }
    return 0;
}

// Any bytes as a language table; every text of it is filled as a format.
#include "kit/listing/Strings.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessivo::Strings;
    for (const auto& [key, text] : parseTable({reinterpret_cast<const char*>(data), size})) {
        tr(key, {text});
        tr(text, {"%@", key});
    }
    return 0;
}

// Any bytes as a machine file: a property map that survives being written, or a fault with a reason.
#include "kit/hardware/BatteryReading.h"
#include "kit/hardware/USBDevice.h"
#include "kit/support/PropertyJson.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessivo;
    try {
        const PropertyMap map = parsePropertyMap({reinterpret_cast<const char*>(data), size});
        if (parsePropertyMap(prettyText(map)) != map) std::abort();
        BatteryReading::make(&map, &map).healthPercent();
        USBDevice::make(map).summary();
    } catch (const DecodingError& error) {
        if (error.what()[0] == '\0') std::abort();
    }
    return 0;
}

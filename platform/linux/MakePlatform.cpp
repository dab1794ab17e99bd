#include "platform/linux/LinuxPlatform.h"

namespace tessivo {

std::unique_ptr<Platform> makePlatform(std::shared_ptr<SourceRecord> record) {
    return std::make_unique<LinuxPlatform>("/", std::move(record));
}

} // namespace tessivo

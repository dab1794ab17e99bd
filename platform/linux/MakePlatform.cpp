#include "platform/linux/LinuxPlatform.h"

namespace tessivo {

std::unique_ptr<Platform> makePlatform() {
    return std::make_unique<LinuxPlatform>();
}

} // namespace tessivo

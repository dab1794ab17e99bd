#include "platform/CapturedFacts.h"

#include "platform/linux/LinuxMachineFacts.h"
#include "platform/linux/LinuxRegistry.h"

#include <stdexcept>

namespace tessivo {

CapturedFacts CapturedFacts::read(const std::filesystem::path& folder, std::shared_ptr<SourceRecord> record) {
    std::error_code error;
    std::filesystem::directory_iterator(folder, error);
    if (error) throw std::runtime_error(folder.string() + ": " + error.message());
    const SystemTree tree(folder, std::move(record));
    return {std::make_unique<LinuxMachineFacts>(tree), std::make_unique<LinuxRegistry>(tree),
            std::make_unique<LinuxPowerSources>(tree)};
}

} // namespace tessivo

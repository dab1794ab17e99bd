#include "platform/CapturedFacts.h"

#include <stdexcept>

namespace tessivo {

CapturedFacts CapturedFacts::read(const std::filesystem::path& folder, std::shared_ptr<SourceRecord>) {
    throw std::runtime_error(folder.string() +
                             ": a captured folder is Linux's own and can be read under Linux alone");
}

} // namespace tessivo

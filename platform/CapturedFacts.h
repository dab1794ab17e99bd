#pragma once

#include "platform/MachineFacts.h"
#include "platform/Registry.h"

#include <filesystem>
#include <memory>

namespace tessivo {

class SourceRecord;

/// The raw facts of another computer, read from a copy of the files in which its system tells of itself.
/// Nothing of it is run, and nothing of this computer is asked.
struct CapturedFacts {
    std::unique_ptr<MachineFacts> machineFacts;
    std::unique_ptr<Registry> registry;
    std::unique_ptr<PowerSources> powerSources;

    /// `record` keeps what the facts are made from; it may be null. Throws std::runtime_error, which names
    /// the folder, where it can't be listed. The build's platform defines it, as `makePlatform`.
    static CapturedFacts read(const std::filesystem::path& folder, std::shared_ptr<SourceRecord> record);
};

} // namespace tessivo

#pragma once

#include "platform/Storage.h"

namespace tessivo {

/// The user's data folder by the system's convention, below it "Tessivo".
class QtFolders final : public Folders {
public:
    std::vector<std::filesystem::path> applicationSupport() const override;
};

} // namespace tessivo

#pragma once

#include "platform/Desktop.h"

#include <filesystem>

/// The system's paper setting: the locale category LC_PAPER of the environment, else the file /etc/papersize.
namespace tessivo::PaperSetting {

/// `root` is the folder that stands for "/". Nothing where the locale is "C" or unknown and the file is
/// missing or names no paper that is known.
std::optional<Paper> read(const std::filesystem::path& root);

} // namespace tessivo::PaperSetting

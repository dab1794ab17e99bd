#pragma once

#include "platform/SystemTools.h"

#include <filesystem>

namespace tessivo {

/// Runs a tool in a process group of its own, with nothing on standard input and its standard error
/// dropped. A run is over when the tool itself has ended; what it left behind in its group is ended
/// with it. A stop ends the group and all that descends from the tool. Any thread but the main one.
class LinuxSystemTools final : public SystemTools {
public:
    /// `root` stands in front of every tool's path; tools of a captured tree lie within it.
    explicit LinuxSystemTools(std::filesystem::path root = "/");

    std::optional<ToolRun> run(const std::string& executable, const std::vector<std::string>& arguments,
                               const StopToken& stop) const override;

private:
    std::filesystem::path m_root;
};

} // namespace tessivo

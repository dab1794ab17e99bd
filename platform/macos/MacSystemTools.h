#pragma once

#include "platform/SystemTools.h"

namespace tessivo {

/// Runs a tool in a process group of its own, with nothing on standard input, its standard error dropped and
/// no other descriptor of this program. A run is over when the tool itself has ended; what it left behind in
/// its group is ended with it. A stop ends the group and all that descends from the tool. Any thread but the
/// main one.
class MacSystemTools final : public SystemTools {
public:
    std::optional<ToolRun> run(const std::string& executable, const std::vector<std::string>& arguments,
                               const StopToken& stop) const override;
};

} // namespace tessivo

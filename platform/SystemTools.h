#pragma once

#include "platform/StopToken.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tessivo {

/// How a tool ended, and the first bytes of what it printed on standard output.
struct ToolRun {
    int exitStatus = 0; ///< a tool that was ended by a signal has a status other than 0
    std::string standardOutput;
};

/// Runs tools of the system. Blocks its own thread for as long as the tool lives: never the main one.
class SystemTools {
public:
    /// What is kept of a tool's output, in bytes; the rest is read and dropped.
    static constexpr std::size_t largestOutput = 1u << 20;

    virtual ~SystemTools() = default;

    /// Nothing if the tool can't be launched, or the token was stopped; a stop ends the tool and
    /// whatever it started.
    virtual std::optional<ToolRun> run(const std::string& executable,
                                       const std::vector<std::string>& arguments,
                                       const StopToken& stop) const = 0;
};

} // namespace tessivo

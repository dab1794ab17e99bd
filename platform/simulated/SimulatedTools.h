#pragma once

#include "platform/SystemTools.h"
#include "platform/simulated/MachineFile.h"

#include <condition_variable>
#include <mutex>

namespace tessivo {

/// The system tools of a simulated Mac, by path. Any thread.
class SimulatedTools final : public SystemTools {
public:
    explicit SimulatedTools(const MachineFile& machine);

    std::optional<ToolRun> run(const std::string& executable, const std::vector<std::string>& arguments,
                               const StopToken& stop) const override;

    /// What the tool answers from now on, runs that hang included; bytes beyond the largest output are
    /// dropped.
    void answer(const std::string& executable, ToolRun run);
    /// From now on the tool can't be launched; runs that hang end so.
    void remove(const std::string& executable);
    /// From now on the tool runs without end, until it is stopped or given an answer.
    void hang(const std::string& executable);
    /// The arguments of every run so far, in order.
    std::vector<std::vector<std::string>> runs() const;

private:
    struct Tool {
        ToolRun run;
        bool hangs = false;
    };

    mutable std::mutex m_mutex;
    mutable std::condition_variable m_changed;
    std::map<std::string, Tool> m_tools;
    mutable std::vector<std::vector<std::string>> m_runs;
};

} // namespace tessivo

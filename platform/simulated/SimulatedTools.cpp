#include "platform/simulated/SimulatedTools.h"

namespace tessivo {

SimulatedTools::SimulatedTools(const MachineFile& machine) {
    if (!machine.tools) return;
    for (const auto& [path, tool] : *machine.tools)
        answer(path, {tool.exitStatus, tool.output.value_or("")});
}

std::optional<ToolRun> SimulatedTools::run(const std::string& executable,
                                           const std::vector<std::string>& arguments,
                                           const StopToken& stop) const {
    const StopCallback wake(stop, [this] {
        const std::lock_guard lock(m_mutex);
        m_changed.notify_all();
    });
    std::unique_lock lock(m_mutex);
    m_runs.push_back(arguments);
    const auto ends = [&] {
        const auto tool = m_tools.find(executable);
        return stop.stopRequested() || tool == m_tools.end() || !tool->second.hangs;
    };
    m_changed.wait(lock, ends);
    const auto tool = m_tools.find(executable);
    if (stop.stopRequested() || tool == m_tools.end()) return std::nullopt;
    return tool->second.run;
}

void SimulatedTools::answer(const std::string& executable, ToolRun run) {
    if (run.standardOutput.size() > largestOutput) run.standardOutput.resize(largestOutput);
    const std::lock_guard lock(m_mutex);
    m_tools[executable] = {std::move(run), false};
    m_changed.notify_all();
}

void SimulatedTools::remove(const std::string& executable) {
    const std::lock_guard lock(m_mutex);
    m_tools.erase(executable);
    m_changed.notify_all();
}

void SimulatedTools::hang(const std::string& executable) {
    const std::lock_guard lock(m_mutex);
    m_tools[executable].hangs = true;
}

std::vector<std::vector<std::string>> SimulatedTools::runs() const {
    const std::lock_guard lock(m_mutex);
    return m_runs;
}

} // namespace tessivo

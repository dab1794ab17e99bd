#pragma once

#include "tests/TemporaryFolder.h"
#include "tests/contract/PlatformContract.h"

namespace tessivo {

/// A world whose tools are programs, here shell scripts.
struct ScriptedTools : ContractWorld {
    std::string script(const std::string& lines) {
        const auto file = folder.write("tool-" + std::to_string(++count), "#!/bin/sh\n" + lines + "\n");
        std::filesystem::permissions(file, std::filesystem::perms::owner_all);
        return file.string();
    }
    std::string toolThatAnswers(const ToolRun& run) override {
        const auto file = folder.write("output-" + std::to_string(++count), run.standardOutput);
        return script("cat '" + file.string() + "'; exit " + std::to_string(run.exitStatus));
    }
    std::string toolThatNeverEnds() override { return script("trap '' TERM; while :; do sleep 1; done"); }

    TemporaryFolder folder;
    int count = 0;
};

} // namespace tessivo

#pragma once

#include "platform/SystemTools.h"
#include "tests/TemporaryFolder.h"

#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <thread>
#include <unistd.h>

namespace tessivo {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// What every platform keeps to that runs real programs: driven with shell scripts. A program of tests
/// instantiates it with what makes its tools.
class ShellTools : public testing::TestWithParam<std::function<std::unique_ptr<SystemTools>()>> {
protected:
    std::optional<ToolRun> shell(const std::string& script, const StopToken& stop = {}) const {
        return m_tools->run("/bin/sh", {"-c", script}, stop);
    }

    /// Whether a process lives; a zombie doesn't.
    static bool lives(const std::string& pid) {
        const std::string status = bytesOf("/proc/" + pid + "/stat");
        return !status.empty() && status.substr(status.rfind(')') + 2, 1) != "Z";
    }

    static bool diesSoon(const std::string& pid) {
        for (int i = 0; i < 200 && lives(pid); ++i)
            std::this_thread::sleep_for(10ms);
        return !lives(pid);
    }

    /// Runs the script, stops it once it has written its process numbers into the file, and gives these.
    std::vector<std::string> stopped(const std::string& script) {
        const TemporaryFolder folder;
        const auto file = folder / "pids";
        StopSource source;
        std::optional<ToolRun> result = ToolRun();
        std::thread runner([&] { result = shell("F=" + file.string() + "; " + script, source.token()); });
        while (!std::filesystem::exists(folder / "pids.ready"))
            std::this_thread::sleep_for(5ms);
        const auto start = Clock::now();
        source.requestStop();
        runner.join();
        EXPECT_LT(Clock::now() - start, 2s);
        EXPECT_FALSE(result);
        std::vector<std::string> pids;
        std::istringstream words(bytesOf(file));
        for (std::string pid; words >> pid;)
            pids.push_back(pid);
        return pids;
    }

    static std::size_t openFiles() {
        return std::size_t(std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                                         std::filesystem::directory_iterator()));
    }

    const std::unique_ptr<SystemTools> m_tools = GetParam()();
};

TEST_P(ShellTools, outcomes) {
    const std::tuple<const char*, int, std::string> rows[] = {
        {"echo out; echo err >&2", 0, "out\n"},
        {"printf 'a\\0b'; exit 3", 3, std::string("a\0b", 3)},
        {"kill -9 $$", 137, ""},
        {"cat; echo end", 0, "end\n"}, // nothing waits on standard input
        {"exec >&-; sleep 0.1; exit 7", 7, ""},
        {"trap '' TERM PIPE; echo done", 0, "done\n"},
        // Read to its end and kept within the bound.
        {"yes | head -c 9000000; head -c 3000000 /dev/zero >&2; exit 5", 5, "flood"},
    };
    for (const auto& [script, status, output] : rows) {
        const auto run = shell(script);
        ASSERT_TRUE(run) << script;
        EXPECT_EQ(run->exitStatus, status) << script;
        if (output == "flood")
            EXPECT_EQ(run->standardOutput.size(), SystemTools::largestOutput);
        else
            EXPECT_EQ(run->standardOutput, output) << script;
    }
}

TEST_P(ShellTools, whatCannotBeLaunchedGivesNothing) {
    const TemporaryFolder folder;
    const std::size_t open = openFiles();
    for (const auto& tool :
         {folder.write("not-executable", "#!/bin/sh\n"), folder / "missing", folder.path()})
        EXPECT_FALSE(m_tools->run(tool.string(), {}, {})) << tool;
    StopSource source;
    source.requestStop();
    EXPECT_FALSE(shell("true", source.token()));
    EXPECT_EQ(openFiles(), open);
}

/// A tool sees its three standard files and nothing else of this program's, and leaves nothing open in it.
TEST_P(ShellTools, nothingOfThisProgramIsHandedOn) {
    constexpr int file = 97;
    ::dup2(STDIN_FILENO, file); // would be inherited
    const std::size_t open = openFiles();
    const auto run = shell("cd /proc/$$/fd && echo *");
    ASSERT_TRUE(run);
    for (const char* each : {"0", "1", "2"})
        EXPECT_NE(run->standardOutput.find(each), std::string::npos) << run->standardOutput;
    EXPECT_EQ(run->standardOutput.find(std::to_string(file)), std::string::npos) << run->standardOutput;
    EXPECT_EQ(openFiles(), open);
    ::close(file);
}

TEST_P(ShellTools, aChildThatHoldsThePipeDoesNotHoldTheRun) {
    const auto start = Clock::now();
    const auto run = shell("sleep 60 & echo $!");
    ASSERT_TRUE(run);
    EXPECT_LT(Clock::now() - start, 5s);
    EXPECT_EQ(run->exitStatus, 0);
    EXPECT_TRUE(diesSoon(run->standardOutput.substr(0, run->standardOutput.find('\n'))));
    // Not even one that goes on writing.
    EXPECT_EQ(shell("yes & exit 4").value_or(ToolRun()).exitStatus, 4);
}

TEST_P(ShellTools, aStopEndsTheToolAndWhatItStarted) {
    const char* const scripts[] = {
        "echo $$ > $F; : > $F.ready; sleep 60",
        "echo $$ > $F; : > $F.ready; yes",
        "trap '' TERM INT HUP PIPE; echo $$ > $F; : > $F.ready; exec >&-; while :; do sleep 1; done",
        "sleep 60 & echo $$ $! > $F; sh -c 'echo $$ >> '$F'; : > '$F'.ready; exec sleep 60'",
        // In the group of whoever started it: ours.
        "exec perl -e 'setpgrp 0, getpgrp getppid; open F, \">$ARGV[0]\"; print F $$; close F;"
        " open F, \">$ARGV[0].ready\"; close F; sleep 60' $F",
        // In a group of its own.
        "echo $$ > $F; setsid sh -c 'echo $$ >> '$F'; : > '$F'.ready; exec sleep 60' & wait",
    };
    for (const char* script : scripts) {
        const auto pids = stopped(script);
        EXPECT_FALSE(pids.empty());
        for (const std::string& pid : pids)
            EXPECT_TRUE(diesSoon(pid)) << script;
    }
}

} // namespace tessivo

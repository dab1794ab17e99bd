#include "platform/macos/MacSystemTools.h"
#include "tests/contract/ShellToolsContract.h"
#include "tests/macos/MacFixture.h"

#include <sys/wait.h>

namespace tessivo {
namespace {

std::unique_ptr<SystemTools> macTools() {
    return std::make_unique<MacSystemTools>();
}

INSTANTIATE_TEST_SUITE_P(Mac, ShellTools, testing::Values(macTools));

using MacToolsTest = Mac;

std::size_t openFiles() {
    return namesIn("/proc/self/fd").size();
}

/// The wait in the queue is one of the calls: a tool whose end can't be told is ended.
TEST_F(MacToolsTest, everyCallMayFailAndNothingIsLeft) {
    const std::size_t open = openFiles();
    const int before = system.calls();
    EXPECT_EQ(MacSystemTools().run("/bin/sh", {"-c", "echo a; sleep 0.2"}, {})->standardOutput, "a\n");
    const int calls = system.calls() - before;
    EXPECT_GE(calls, 5);
    for (int call = 0; call < calls; ++call) {
        system.failCall(system.calls() + call);
        const auto run = MacSystemTools().run("/bin/sh", {"-c", "echo a; sleep 0.2"}, {});
        EXPECT_TRUE(!run || run->standardOutput == "a\n") << call;
        system.failCall(-1);
    }
    EXPECT_EQ(openFiles(), open);
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1); // nobody is left, not even as a number
    EXPECT_EQ(errno, ECHILD);
}

} // namespace
} // namespace tessivo

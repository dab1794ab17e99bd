#include "platform/simulated/ManualScheduler.h"

#include <gmock/gmock.h>
#include <string>
#include <vector>

using namespace tessivo;
using namespace std::chrono_literals;
using testing::ElementsAre;

namespace {

class ManualSchedulerTests : public testing::Test {
protected:
    void ask(std::chrono::milliseconds delay, const std::string& name) {
        handles.push_back(clock.after(delay, [this, name] { ran.push_back(name); }));
    }

    ManualScheduler clock{Date{1000}};
    std::vector<std::string> ran;
    std::vector<std::unique_ptr<Scheduled>> handles;
};

TEST_F(ManualSchedulerTests, actionsRunByTimeThenInTheOrderTheyWereAskedFor) {
    ask(200ms, "later");
    ask(100ms, "first");
    ask(100ms, "second");
    ask(-5ms, "at once");
    clock.advance(99ms);
    EXPECT_THAT(ran, ElementsAre("at once"));
    clock.advance(1ms);
    EXPECT_THAT(ran, ElementsAre("at once", "first", "second"));
    clock.advance(10s);
    EXPECT_THAT(ran, ElementsAre("at once", "first", "second", "later"));
    EXPECT_DOUBLE_EQ(clock.now().seconds, 1010.1);
    EXPECT_EQ(clock.pending(), 0u);
}

TEST_F(ManualSchedulerTests, aRepeatingActionSeesItsOwnMomentAndRunsAsOftenAsItFallsDue) {
    std::vector<double> moments;
    std::unique_ptr<Scheduled> next;
    std::function<void()> poll = [&] {
        moments.push_back(clock.now().seconds);
        next = clock.after(500ms, poll);
    };
    poll();
    clock.advance(1400ms);
    EXPECT_THAT(moments, ElementsAre(1000, 1000.5, 1001));
    EXPECT_DOUBLE_EQ(clock.now().seconds, 1001.4);
}

TEST_F(ManualSchedulerTests, aHandleCancelsAlsoFromAnActionAndMayOutliveTheClock) {
    std::unique_ptr<Scheduled> own, victim, orphan;
    {
        ManualScheduler brief;
        own = brief.after(1ms, [&, text = std::string("kept while it runs, and too long to stand inside")] {
            own.reset();
            victim.reset();
            ran.push_back(text.substr(0, 4));
        });
        victim = brief.after(1ms, [&] { ran.push_back("cancelled from an action of the same moment"); });
        orphan = brief.after(1h, [] {});
        brief.advance(1ms);
    }
    EXPECT_THAT(ran, ElementsAre("kept"));
}

} // namespace

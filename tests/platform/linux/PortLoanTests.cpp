#include "platform/linux/PortLoan.h"

#include <deque>
#include <gmock/gmock.h>

namespace tessivo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using enum PortLoan::Outcome;

/// A server with one sink, which answers when it is told to.
class FakePorts final : public SinkPorts {
public:
    std::string active = "speaker";
    bool refuses = false;
    bool switchesLate = false;
    std::vector<std::string> chosen;
    std::deque<std::function<void()>> answers;
    std::vector<std::function<void()>> timers;

    void look(const std::string& sink, std::function<void(std::optional<std::string>)> seen) override {
        answers.push_back([=, this] { seen(sink == "card" ? std::optional(active) : std::nullopt); });
    }
    void choose(const std::string&, const std::string& port, std::function<void(bool)> done) override {
        answers.push_back([=, this] {
            chosen.push_back(port);
            if (!refuses && !switchesLate) active = port;
            done(!refuses);
        });
    }
    void later(std::chrono::milliseconds, std::function<void()> action) override { timers.push_back(action); }

    void answer() {
        const auto next = answers.front();
        answers.pop_front();
        next();
    }
    PulseSnapshot list(PulseAvailability jack = PulseAvailability::yes) const {
        return {.server = PulseSnapshot::Server::connected,
                .sinks = {{.name = "card",
                           .ports = {{"speaker"}, {"jack", "", 0, jack}, {"line"}},
                           .activePort = active}}};
    }
};

class PortLoanTest : public testing::Test {
protected:
    void SetUp() override { loan.see(server.list()); }

    void take(const void* borrower, const std::string& port = "jack", const std::string& sink = "card") {
        loan.take(borrower, sink, port, [this](PortLoan::Outcome outcome) { told.push_back(outcome); });
    }
    void answerAll() {
        while (!server.answers.empty())
            server.answer();
    }

    FakePorts server;
    PortLoan loan{server};
    std::vector<PortLoan::Outcome> told;
    int first = 0, second = 0;
};

TEST_F(PortLoanTest, aPortIsGrantedWhenTheServerSaysItIsActiveAndPutBackAfter) {
    take(&first);
    for (const bool granted : {false, false, true}) { // what was, the choice, what is
        EXPECT_THAT(told, IsEmpty());
        server.answer();
        EXPECT_EQ(!told.empty(), granted);
    }
    EXPECT_THAT(server.answers, IsEmpty());
    take(&first); // the next tone
    answerAll();
    EXPECT_THAT(told, ElementsAre(granted, granted));
    EXPECT_THAT(server.chosen, ElementsAre("jack")) << "nothing flaps in between";
    loan.giveBack(&second);
    EXPECT_THAT(server.answers, IsEmpty()) << "it has nothing";
    loan.giveBack(&first);
    EXPECT_FALSE(loan.isSettled());
    answerAll();
    EXPECT_THAT(server.chosen, ElementsAre("jack", "speaker"));
    EXPECT_TRUE(loan.isSettled());

    server.active = "jack";
    take(&first);
    answerAll();
    loan.giveBack(&first);
    answerAll();
    EXPECT_EQ(server.chosen.size(), 2u) << "what was active before stays";
}

TEST_F(PortLoanTest, whatTheServerDoesntDoIsRefused) {
    take(&first, "jack", "no such card");
    answerAll();
    server.refuses = true;
    take(&first);
    answerAll();
    EXPECT_THAT(told, ElementsAre(refused, refused));
    EXPECT_TRUE(loan.isSettled());

    server.refuses = false;
    server.switchesLate = true; // and never comes to it
    take(&first);
    answerAll();
    loan.see(server.list());
    EXPECT_EQ(told.size(), 2u);
    server.timers.back()();
    answerAll();
    EXPECT_THAT(told, ElementsAre(refused, refused, refused));
    EXPECT_TRUE(loan.isSettled());

    take(&first); // and comes to it in time
    answerAll();
    server.active = "jack";
    loan.see(server.list());
    server.timers.back()();
    EXPECT_THAT(told, ElementsAre(refused, refused, refused, granted));
}

TEST_F(PortLoanTest, aPortThatIsTakenAwayIsLostAndAnothersChoiceStays) {
    struct {
        const char* active;
        PulseAvailability jack;
        std::vector<std::string> chosen;
    } const cases[] = {{"line", PulseAvailability::yes, {"jack"}},
                       {"jack", PulseAvailability::no, {"jack", "speaker"}}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.active);
        server.chosen.clear();
        told.clear();
        server.active = "speaker";
        take(&first);
        answerAll();
        loan.see(server.list());
        EXPECT_THAT(told, ElementsAre(granted));
        server.active = row.active;
        loan.see(server.list(row.jack));
        answerAll();
        EXPECT_THAT(told, ElementsAre(granted, lost));
        EXPECT_EQ(server.chosen, row.chosen);
        EXPECT_TRUE(loan.isSettled());
    }
}

TEST_F(PortLoanTest, theNextLoanWaitsForWhatIsPutBack) {
    for (const int before : {0, 1, 2, 3, 4, 5}) {
        SCOPED_TRACE(before);
        server.active = "speaker";
        server.chosen.clear();
        take(&first);
        for (int i = 0; i < before && !server.answers.empty(); ++i)
            server.answer();
        loan.giveBack(&first);
        for (int i = 3; i < before; ++i)
            server.answer();
        told.clear();
        take(&second, "line");
        answerAll();
        EXPECT_THAT(told, ElementsAre(granted));
        EXPECT_EQ(server.active, "line");
        loan.giveBack(&second);
        answerAll();
        EXPECT_EQ(server.active, "speaker");
        EXPECT_TRUE(loan.isSettled());
    }
}

TEST_F(PortLoanTest, aServerThatWentGetsItsPortBackWhenItComesAgain) {
    take(&first);
    answerAll();
    loan.disconnected();
    EXPECT_THAT(told, ElementsAre(granted, lost));
    take(&first);
    EXPECT_THAT(told, ElementsAre(granted, lost, lost)) << "no tone waits for a server";
    EXPECT_THAT(server.answers, IsEmpty());
    loan.see({.server = PulseSnapshot::Server::connected}); // its card isn't there yet
    EXPECT_THAT(server.answers, IsEmpty());
    loan.see(server.list());
    answerAll();
    EXPECT_EQ(server.active, "speaker");
    EXPECT_TRUE(loan.isSettled());
}

} // namespace
} // namespace tessivo

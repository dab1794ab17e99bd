#include "kit/rules/Rules.h"
#include "tests/kit/rules/Printed.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

using enum ManualAnswer;

TEST(PortRule, oneBadPortWinsOverEveryDevice) {
    const USBDevice drive = {"Flash Drive", "Maker", 1, 2, 3, 3, 8};
    struct Row {
        std::vector<PortSlot> slots;
        const char* expected;
    };
    const std::vector<Row> rows = {
        {{}, "notRun: Not run"},
        {{{1, {}, unanswered}, {2, {}, unanswered}}, "notRun: Not run"},
        {{{1, {}, notPresent}, {2, {}, unanswered}},
         "unfinished: 0 of 2 ports tried | Port 1: not tried | Port 2: not tried"},
        {{{1, drive, works}, {2, {}, unanswered}},
         "unfinished: 1 of 2 ports tried | Port 1: Flash Drive · 5 Gb/s (USB 3) | Port 2: not tried"},
        {{{1, drive, unanswered}, {2, {}, works}},
         "works: All 2 ports worked | Port 1: Flash Drive · 5 Gb/s (USB 3) | Port 2: works (checked by "
         "hand)"},
        {{{1, {}, works}}, "works: All 1 ports worked | Port 1: works (checked by hand)"},
        {{{1, drive, problem}, {2, drive, works}, {3, {}, problem}},
         "problem: Nothing showed up on Port 1, Port 3 | Port 1: Flash Drive · 5 Gb/s (USB 3) | "
         "Port 2: Flash Drive · 5 Gb/s (USB 3) | Port 3: nothing showed up"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(printed(Rules::ports(row.slots)), row.expected);
}

TEST(EthernetRule, noCableIsNoFault) {
    const char* const mark =
        "checkByHand: No built-in Ethernet port found | Mark it not included if this Mac has no "
        "Ethernet port.";
    struct Row {
        std::optional<EthernetTest> test; // looked, ports, seen on, speed, came up, saw down
        std::optional<MacKind> kind;
        const char* expected;
    };
    const std::vector<Row> rows = {
        {std::nullopt, MacKind::desktop, "notRun: Not run"},
        {EthernetTest{false, {"en0"}, "en0", {}, false, {}}, MacKind::desktop, "notRun: Not run"},
        {EthernetTest{true, {"en0"}, "en0", 2'500'000'000, true, {}}, MacKind::desktop,
         "works: A wired link came up at 2.5 Gb/s | Port: en0 | Link speed: 2.5 Gb/s | The link came up when "
         "the cable went in"},
        {EthernetTest{true, {}, "en0", 0, false, {}}, std::nullopt,
         "works: A wired link came up | Port: en0 | The link was already up when the test started"},
        {EthernetTest{true, {"en0", "en1"}, {}, {}, false, {"en0"}}, MacKind::desktop,
         "unfinished: Plug in a cable from a router or switch | Ports found: en0, en1 | No wired link yet"},
        {EthernetTest{true, {}, {}, {}, false, {}}, MacKind::allInOne,
         "checkByHand: No built-in Ethernet port found | Some iMacs have the port on the power adapter, and "
         "some have none: mark it not included if this one has none."},
        {EthernetTest{true, {}, {}, {}, false, {}}, MacKind::desktop, mark},
        {EthernetTest{true, {}, {}, {}, false, {}}, std::nullopt, mark},
    };
    for (const Row& row : rows)
        EXPECT_EQ(printed(Rules::ethernet(row.test, row.kind)), row.expected);
}

} // namespace
} // namespace tessivo

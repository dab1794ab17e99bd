#include "kit/rules/RuleTexts.h"
#include "kit/rules/Rules.h"
#include "kit/support/Text.h"

#include <algorithm>

namespace tessivo::Rules {

const char* const noEthernetPort = "No built-in Ethernet port found";

namespace {

/// What a detail of the result says of a port; its row on the page says it in other words, `portRow`.
std::string outcome(const PortSlot& slot) {
    if (slot.device) return slot.device->summary();
    if (slot.answer == ManualAnswer::problem) return "nothing showed up";
    if (slot.answer == ManualAnswer::works) return "works (checked by hand)";
    return "not tried";
}

} // namespace

std::string portRow(const PortSlot& slot, bool active) {
    if (slot.device) return slot.device->name;
    if (slot.answer == ManualAnswer::problem) return "Nothing showed up";
    return active ? "Waiting: plug a device into this port" : "Not tried";
}

TestResult ports(const std::vector<PortSlot>& slots) {
    if (std::ranges::none_of(slots, &PortSlot::isTouched))
        return {TestID::ports, TestStatus::notRun, "Not run"};

    std::vector<std::string> details;
    std::vector<std::string> faults;
    for (const PortSlot& slot : slots) {
        details.push_back(slot.title() + ": " + outcome(slot));
        if (slot.answer == ManualAnswer::problem) faults.push_back(slot.title());
    }
    const auto tried = static_cast<std::size_t>(std::ranges::count_if(slots, &PortSlot::passed));
    const std::string count = std::to_string(slots.size());

    if (!faults.empty())
        return {TestID::ports, TestStatus::problem, "Nothing showed up on " + Text::joined(faults, ", "),
                std::move(details)};
    if (tried == slots.size())
        return {TestID::ports, TestStatus::works, "All " + count + " ports worked", std::move(details)};
    return {TestID::ports, TestStatus::unfinished, std::to_string(tried) + " of " + count + " ports tried",
            std::move(details)};
}

TestResult ethernet(const std::optional<EthernetTest>& test, std::optional<MacKind> kind) {
    if (!test || !test->looked) return {TestID::ethernet, TestStatus::notRun, "Not run"};

    if (test->linkSeenOn) {
        std::string summary = "A wired link came up";
        std::vector<std::string> details = {"Port: " + *test->linkSeenOn};
        if (const auto speed = EthernetCheck::speedText(test->linkSpeed)) {
            summary += " at " + *speed;
            details.push_back("Link speed: " + *speed);
        }
        details.emplace_back(test->cameUpWhileTesting ? "The link came up when the cable went in"
                                                      : "The link was already up when the test started");
        return {TestID::ethernet, TestStatus::works, std::move(summary), std::move(details)};
    }
    if (!test->ports.empty())
        return {TestID::ethernet,
                TestStatus::unfinished,
                "Plug in a cable from a router or switch",
                {"Ports found: " + Text::joined(test->ports, ", "), "No wired link yet"}};
    return {
        TestID::ethernet,
        TestStatus::checkByHand,
        noEthernetPort,
        {kind == MacKind::allInOne
             ? "Some iMacs have the port on the power adapter, and some have none: mark it not included if "
               "this one has none."
             : "Mark it not included if this Mac has no Ethernet port."}};
}

} // namespace tessivo::Rules

#include "kit/report/ConditionReport.h"

#include "kit/support/Text.h"

#include <algorithm>
#include <limits>

namespace tessivo {

std::string ConditionReport::title() const {
    return "Condition report: " + machine.displayName();
}

const TestResult* ConditionReport::result(TestID test) const {
    return resultOf(test, results);
}

std::int64_t ConditionReport::count(TestStatus status) const {
    return std::ranges::count(results, status, &TestResult::status);
}

std::string ConditionReport::countsText() const {
    const std::int64_t problems = count(TestStatus::problem);
    const std::pair<std::int64_t, const char*> counts[] = {
        {count(TestStatus::works), " work"},
        {problems, problems == 1 ? " problem" : " problems"},
        {count(TestStatus::checkByHand), " to check by hand"},
        {count(TestStatus::notRun) + count(TestStatus::unfinished), " not finished"},
        {count(TestStatus::notIncluded), " not included"},
    };
    std::vector<std::string> parts;
    for (const auto& [number, words] : counts)
        if (number != 0) parts.push_back(std::to_string(number) + words);
    return Text::joined(parts, ", ");
}

std::int64_t ConditionReport::pickupSeconds() const {
    std::int64_t sum = 0;
    // A hand-edited file may hold any number; the sum stays within its range.
    for (const PickupStep& step : pickup)
        if (__builtin_add_overflow(sum, step.seconds, &sum))
            sum = step.seconds > 0 ? std::numeric_limits<std::int64_t>::max()
                                   : std::numeric_limits<std::int64_t>::min();
    return sum;
}

std::int64_t ConditionReport::pickupMinutes() const {
    const std::int64_t seconds = pickupSeconds();
    return std::max<std::int64_t>(1, seconds / 60 + (seconds % 60 > 0 ? 1 : 0));
}

std::string ConditionReport::baseFileName() const {
    return "Condition Report " + machine.serial.value_or(machine.modelID);
}

} // namespace tessivo

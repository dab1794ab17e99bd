#include "kit/rules/Rules.h"
#include "kit/support/Text.h"

#include <algorithm>

namespace tessivo::Rules {
namespace {

constexpr std::size_t keysNamed = 12;

/// "Not pressed yet: q, w and 3 more".
std::string notPressedYet(const std::vector<KeySpec>& remaining) {
    std::vector<std::string> names;
    for (const KeySpec& key : remaining) {
        if (names.size() == keysNamed) break;
        names.push_back(key.name());
    }
    std::string line = "Not pressed yet: " + Text::joined(names, ", ");
    if (remaining.size() > keysNamed)
        line += " and " + std::to_string(remaining.size() - keysNamed) + " more";
    return line;
}

std::string seen(bool met, const char* otherwise) {
    return met ? "seen" : otherwise;
}

} // namespace

TestResult keyboard(const KeyboardTest& test) {
    if (!test.started()) return {TestID::keyboard, TestStatus::notRun, "Not run"};

    const auto [done, total] = test.progress();
    const std::string count = std::to_string(done) + " of " + std::to_string(total) + " keys";
    const std::set<KeyCode>& codes = KeyboardLayout::named(test.layout).codes();
    const auto ticked = std::ranges::count_if(
        codes, [&](KeyCode code) { return test.handChecked.contains(code) && !test.pressed.contains(code); });

    std::vector<std::string> details = {
        count + (ticked > 0 ? " (" + std::to_string(ticked) + " ticked by hand)" : "") + " on the " +
        KeyboardLayout::title(test.layout) + " layout"};
    if (const std::vector<KeySpec> remaining = test.remaining(); !remaining.empty())
        details.push_back(notPressedYet(remaining));

    int open = 0;
    std::vector<std::string> faults;
    for (const ManualKeyCheck& check : ManualKeyCheck::all()) {
        switch (test.answer(check.id)) {
        case ManualAnswer::unanswered:
            ++open;
            break;
        case ManualAnswer::works:
            details.push_back(check.title + ": works (checked by hand)");
            break;
        case ManualAnswer::problem:
            details.push_back(check.title + ": problem");
            faults.push_back(check.title);
            break;
        case ManualAnswer::notPresent:
            details.push_back(check.title + ": not on this keyboard");
            break;
        }
    }

    if (!faults.empty())
        return {TestID::keyboard, TestStatus::problem, "Problem: " + Text::joined(faults, ", "),
                std::move(details)};
    if (done != total || open > 0) {
        std::string summary = count;
        if (open > 0)
            summary += "; " + std::to_string(open) + (open == 1 ? " check" : " checks") + " by hand left";
        return {TestID::keyboard, TestStatus::unfinished, std::move(summary), std::move(details)};
    }
    return {TestID::keyboard, TestStatus::works,
            "Every key works (" + std::to_string(done) + " keys, plus 3 checks by hand)", std::move(details)};
}

TestResult trackpad(const TrackpadTest& test) {
    if (!test.started()) return {TestID::trackpad, TestStatus::notRun, "Not run"};

    const std::vector<TrackpadTest::Step> steps = test.steps();
    // Multiplied before it is divided: 23 cells are exactly 57.5 %, which a stored share isn't.
    const double percent = static_cast<double>(test.touched.size()) * 100 /
                           static_cast<double>(TrackpadTest::columns * TrackpadTest::rows);

    std::vector<std::string> details = {"Surface touched: " + Text::whole(percent) + "%"};
    for (std::size_t index = 1; index < steps.size(); ++index)
        details.push_back(steps[index].name + ": " + seen(steps[index].met, "not yet"));
    if (test.maxFingers > 0)
        details.push_back("Up to " + std::to_string(test.maxFingers) +
                          (test.maxFingers == 1 ? " finger" : " fingers") + " at once");
    details.push_back("Force Click: " + seen(test.forceClicked, "not seen (older trackpads don't have it)"));
    details.push_back("Pinch to zoom: " + seen(test.zoomed, "not seen"));

    std::vector<std::string> open;
    for (const TrackpadTest::Step& step : steps)
        if (!step.met) open.push_back(step.name);
    if (open.empty())
        return {TestID::trackpad, TestStatus::works,
                "Whole surface, click, secondary click and scrolling work", std::move(details)};
    return {TestID::trackpad, TestStatus::unfinished,
            "Still to do: " + Text::lowercased(Text::joined(open, ", ")), std::move(details)};
}

TestResult display(const DisplayTest& test) {
    std::vector<std::string> shown;
    for (const std::string& color : DisplayTest::colors())
        if (test.shown.contains(color)) shown.push_back(color);

    std::vector<std::string> details;
    if (!shown.empty()) details.push_back("Colors shown full screen: " + Text::joined(shown, ", "));
    if (test.screenName) details.push_back("Display: " + *test.screenName);

    switch (test.answer) {
    case ManualAnswer::problem:
        return {TestID::display, TestStatus::problem, "Dead or stuck pixels seen", std::move(details)};
    case ManualAnswer::notPresent:
        return {TestID::display, TestStatus::notIncluded, "No display", std::move(details)};
    case ManualAnswer::works:
        return {TestID::display, TestStatus::works, "No dead or stuck pixels seen", std::move(details)};
    case ManualAnswer::unanswered:
        break;
    }
    if (shown.empty()) return {TestID::display, TestStatus::notRun, "Not run"};
    if (!test.allShown())
        return {TestID::display, TestStatus::unfinished, std::to_string(shown.size()) + " of 6 colors shown",
                std::move(details)};
    return {TestID::display, TestStatus::unfinished, "Colors shown; answer what you saw", std::move(details)};
}

} // namespace tessivo::Rules

// Any text as a seller's words and as a rewording: the guard decides the same way twice, and a description
// always passes as its own rewording.
#include "kit/listing/WordingGuard.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessivo;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t middle = size == 0 ? 0 : data[0] % size;
    ConditionReport report;
    report.machine.modelID = "Mac";
    report.machine.chip = bytes.substr(middle / 2, middle);
    report.notes = bytes.substr(0, middle);
    const std::string text = bytes.substr(middle);
    report.results = {{TestID::display, TestStatus::problem, text, {}, {}}};

    const ListingWriteUp writeUp = ListingTemplate::make(report, false);
    if (!WordingGuard::check(writeUp.text, writeUp).empty()) std::abort();
    const auto issues = WordingGuard::check(text, writeUp);
    if (issues != WordingGuard::check(text, writeUp)) std::abort();
    for (const GuardIssue& issue : issues)
        issue.message();
    return 0;
}

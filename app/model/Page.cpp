#include "app/model/Page.h"

namespace tessivo {

std::vector<TestID> tests(Page page) {
    if (page == Page::overview) return {TestID::identity, TestID::enrollment, TestID::activationLock};
    // Every other test page is named for its one test; the last four have none.
    if (auto test = fromRawValue<TestID>(rawValue(page))) return {*test};
    return {};
}

const char* title(Page page) {
    switch (page) {
    case Page::overview:
        return "This Mac";
    case Page::report:
        return "Report";
    case Page::pickup:
        return "Check at Pickup";
    case Page::history:
        return "History";
    case Page::handover:
        return "Erase Before Sale";
    default:
        return title(tests(page).front());
    }
}

const char* symbol(Page page) {
    switch (page) {
    case Page::overview:
        return "laptopcomputer";
    case Page::report:
        return "doc.text";
    case Page::pickup:
        return "stopwatch";
    case Page::history:
        return "clock.arrow.circlepath";
    case Page::handover:
        return "checklist";
    default:
        return symbol(tests(page).front());
    }
}

} // namespace tessivo

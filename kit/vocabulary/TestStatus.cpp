#include "kit/vocabulary/TestStatus.h"

namespace tessivo {
namespace {

struct Look {
    const char* label;
    const char* symbol;
    Tint tint;
    bool done;
};

/// In the order of the cases.
constexpr Look looks[] = {
    {"Not run", "circle", Tint::secondary, false},
    {"Not finished", "circle.lefthalf.filled", Tint::blue, false},
    {"Works", "checkmark.circle.fill", Tint::green, true},
    {"Problem", "xmark.octagon.fill", Tint::red, true},
    {"Check by hand", "hand.raised.circle.fill", Tint::orange, false},
    {"Not included", "minus.circle", Tint::secondary, true},
};
static_assert(std::size(looks) == allCases<TestStatus>().size());

const Look& look(TestStatus status) {
    return looks[std::size_t(status)];
}

} // namespace

const char* label(TestStatus status) {
    return look(status).label;
}

const char* symbol(TestStatus status) {
    return look(status).symbol;
}

Tint tint(TestStatus status) {
    return look(status).tint;
}

bool isDone(TestStatus status) {
    return look(status).done;
}

} // namespace tessivo

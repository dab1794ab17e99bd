#include "kit/vocabulary/TestStatus.h"

namespace tessivo {
namespace {

struct Look {
    const char* label;
    const char* symbol;
    Tint tint;
    bool done;
};

constexpr Look look(TestStatus status) {
    switch (status) {
    case TestStatus::notRun:
        return {"Not run", "circle", Tint::secondary, false};
    case TestStatus::unfinished:
        return {"Not finished", "circle.lefthalf.filled", Tint::blue, false};
    case TestStatus::works:
        return {"Works", "checkmark.circle.fill", Tint::green, true};
    case TestStatus::problem:
        return {"Problem", "xmark.octagon.fill", Tint::red, true};
    case TestStatus::checkByHand:
        return {"Check by hand", "hand.raised.circle.fill", Tint::orange, false};
    case TestStatus::notIncluded:
        return {"Not included", "minus.circle", Tint::secondary, true};
    }
    return {"", "", Tint::secondary, false};
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

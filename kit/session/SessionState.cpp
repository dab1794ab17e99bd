#include "kit/session/SessionState.h"

namespace tessivo {

std::optional<MacKind> SessionState::kind() const {
    return SpecCatalog::kind(machine.modelID);
}

std::vector<TestID> SessionState::tests() const {
    const bool isLaptop = kind() == MacKind::laptop;
    std::vector<TestID> applicable;
    applicable.reserve(allCases<TestID>().size());
    for (const TestID test : allCases<TestID>())
        if (test != TestID::ethernet || !isLaptop) applicable.push_back(test);
    return applicable;
}

} // namespace tessivo

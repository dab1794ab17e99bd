#include "kit/session/DisplayTest.h"

namespace tessivo {

const std::vector<std::string>& DisplayTest::colors() {
    static const std::vector<std::string> names = {"Black", "White", "Red", "Green", "Blue", "Gray"};
    return names;
}

bool DisplayTest::allShown() const {
    return shown.size() >= colors().size();
}

} // namespace tessivo

#include "kit/vocabulary/TestID.h"

namespace tessivo {
namespace {

struct Words {
    const char* title;
    const char* symbol;
};

/// In the order of the tests.
constexpr Words words[] = {
    {"Model and serial number", "info.circle"},
    {"Device management (MDM)", "building.2"},
    {"Activation Lock", "lock"},
    {"Keyboard", "keyboard"},
    {"Trackpad", "rectangle.and.hand.point.up.left"},
    {"Display", "display"},
    {"Speakers", "speaker.wave.2"},
    {"Headphone jack", "headphones"},
    {"Microphones", "mic"},
    {"Cameras", "camera"},
    {"USB ports", "cable.connector"},
    {"Ethernet port", "network"},
    {"Storage", "internaldrive"},
    {"Battery", "battery.75percent"},
};
static_assert(std::size(words) == allCases<TestID>().size());

} // namespace

const char* title(TestID test) {
    return words[std::size_t(test)].title;
}

const char* symbol(TestID test) {
    return words[std::size_t(test)].symbol;
}

} // namespace tessivo

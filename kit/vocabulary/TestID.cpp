#include "kit/vocabulary/TestID.h"

namespace tessivo {
namespace {

struct Words {
    const char* title;
    const char* symbol;
};

constexpr Words words(TestID test) {
    switch (test) {
    case TestID::identity:
        return {"Model and serial number", "info.circle"};
    case TestID::enrollment:
        return {"Device management (MDM)", "building.2"};
    case TestID::activationLock:
        return {"Activation Lock", "lock"};
    case TestID::keyboard:
        return {"Keyboard", "keyboard"};
    case TestID::trackpad:
        return {"Trackpad", "rectangle.and.hand.point.up.left"};
    case TestID::display:
        return {"Display", "display"};
    case TestID::speakers:
        return {"Speakers", "speaker.wave.2"};
    case TestID::headphones:
        return {"Headphone jack", "headphones"};
    case TestID::microphones:
        return {"Microphones", "mic"};
    case TestID::cameras:
        return {"Cameras", "camera"};
    case TestID::ports:
        return {"USB ports", "cable.connector"};
    case TestID::ethernet:
        return {"Ethernet port", "network"};
    case TestID::storage:
        return {"Storage", "internaldrive"};
    case TestID::battery:
        return {"Battery", "battery.75percent"};
    }
    return {"", ""};
}

} // namespace

const char* title(TestID test) {
    return words(test).title;
}

const char* symbol(TestID test) {
    return words(test).symbol;
}

} // namespace tessivo

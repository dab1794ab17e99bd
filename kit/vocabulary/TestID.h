#pragma once

#include "kit/support/Describe.h"

namespace tessivo {

/// The fourteen tests, in the order of every list and report. The case name is the raw value.
enum class TestID {
    identity,
    enrollment,
    activationLock,
    keyboard,
    trackpad,
    display,
    speakers,
    headphones,
    microphones,
    cameras,
    ports,
    ethernet,
    storage,
    battery,
};
BOOST_DESCRIBE_ENUM(TestID, identity, enrollment, activationLock, keyboard, trackpad, display, speakers,
                    headphones, microphones, cameras, ports, ethernet, storage, battery)

/// The heading of the test everywhere: "USB ports".
const char* title(TestID test);

/// The name of the symbol beside the title: "cable.connector".
const char* symbol(TestID test);

} // namespace tessivo

#pragma once

#include "kit/support/Describe.h"
#include "kit/vocabulary/TestID.h"

#include <vector>

namespace tessivo {

/// The pages, in the order of the "Go" menu.
enum class Page {
    overview,
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
    report,
    pickup,
    history,
    handover,
};
BOOST_DESCRIBE_ENUM(Page, overview, keyboard, trackpad, display, speakers, headphones, microphones, cameras,
                    ports, ethernet, storage, battery, report, pickup, history, handover)

/// The tests a page speaks for; empty for the last four.
std::vector<TestID> tests(Page page);
const char* title(Page page);
const char* symbol(Page page);

} // namespace tessivo

#pragma once

#include "platform/Capture.h"
#include "platform/macos/MacKeyMonitor.h"
#include "platform/macos/MacTouchView.h"
#include "platform/macos/MacWindows.h"

#include <map>

namespace tessivo {

/// What a Mac does through interfaces that C has no face for, as a test moves it.
struct StandInCocoa {
    struct TouchView {
        QWindow* window = nullptr;
        QRect place;
        MacTouchView::Handlers handlers;
    };

    static StandInCocoa& shared();
    static void reset() { shared() = {}; }

    std::map<MediaType, std::int64_t> access;         ///< the system's numbers
    std::vector<std::function<void(bool)>> questions; ///< to the person, not answered yet
    std::function<bool(const MacKeyEvent&)> keys;     ///< empty: nobody monitors them
    std::shared_ptr<TouchView> touches;               ///< null: there is no view
    QRectF covered;                                   ///< of the window that covers a screen
    std::vector<std::filesystem::path> files; ///< what the open panel shows; all offered ones are chosen
    std::string panelMessage;
};

} // namespace tessivo

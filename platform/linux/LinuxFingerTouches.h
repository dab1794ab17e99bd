#pragma once

#include "platform/FingerTouches.h"

#include <filesystem>
#include <memory>

class QFileSystemWatcher;

namespace tessivo {

/// Fingers on the touchpads whose event files may be read, also on one that is plugged in meanwhile. The
/// files belong to root and the group "input"; where none may be read, no handler is ever called. It takes
/// nothing away from the window system. Main thread.
class LinuxFingerTouches final : public FingerTouches {
public:
    explicit LinuxFingerTouches(std::filesystem::path devices = "/dev/input");
    ~LinuxFingerTouches() override;

    bool tellsOfEveryWindow() const override { return true; }
    void start(QWindow*, Handlers handlers) override;
    void place(const QRect&) override {}
    void stop() override;

private:
    class Touchpad;

    void lookForTouchpads();
    void tell(std::optional<Gesture> gesture);

    std::filesystem::path m_devices;
    Handlers m_handlers;
    std::vector<std::unique_ptr<Touchpad>> m_touchpads;
    std::int64_t m_nextTouch = 0;
    std::unique_ptr<QFileSystemWatcher> m_watcher;
};

} // namespace tessivo

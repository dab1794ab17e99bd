#pragma once

#include "kit/support/Date.h"

#include <chrono>
#include <functional>
#include <memory>

namespace tessivo {

/// A pending action; letting go of it cancels the action. Main thread.
class Scheduled {
public:
    virtual ~Scheduled() = default;
};

/// The clock and the one way of waiting. Actions run on the main thread. Tests move it by hand.
class Scheduler {
public:
    virtual ~Scheduler() = default;

    virtual Date now() const = 0;
    /// Runs the action once, after the delay on a continuous clock, unless the handle is gone by then.
    [[nodiscard]] virtual std::unique_ptr<Scheduled> after(std::chrono::milliseconds delay,
                                                           std::function<void()> action) = 0;
};

} // namespace tessivo

#pragma once

#include "platform/Scheduler.h"

namespace tessivo {

/// The computer's clock, and waiting on the event loop of the thread that asks.
class QtScheduler final : public Scheduler {
public:
    Date now() const override;
    [[nodiscard]] std::unique_ptr<Scheduled> after(std::chrono::milliseconds delay,
                                                   std::function<void()> action) override;
};

} // namespace tessivo

#pragma once

#include "platform/Scheduler.h"

#include <map>
#include <memory>

namespace tessivo {

/// A clock that stands still until it is moved by hand, for tests. One thread.
class ManualScheduler final : public Scheduler {
public:
    /// The clock starts at this moment.
    explicit ManualScheduler(Date start = {});
    ~ManualScheduler() override;

    Date now() const override;
    /// The handle may outlive the scheduler. A negative delay counts as 0.
    [[nodiscard]] std::unique_ptr<Scheduled> after(std::chrono::milliseconds delay,
                                                   std::function<void()> action) override;

    /// Moves the clock and runs what falls due, by time and then in the order it was asked for. Actions
    /// asked for meanwhile run too when they fall due by then; `now` is each action's own moment.
    void advance(std::chrono::milliseconds time);

    /// How many actions wait.
    std::size_t pending() const;

private:
    struct Queue;
    class Handle;

    Date m_start;
    std::shared_ptr<Queue> m_queue;
};

} // namespace tessivo

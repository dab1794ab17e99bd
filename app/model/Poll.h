#pragma once

#include "platform/Scheduler.h"

namespace tessivo {

/// Runs an action at once and then after each interval, for as long as the poll lives. Main thread.
class Poll final {
public:
    Poll(Scheduler& scheduler, std::chrono::milliseconds interval, std::function<void()> action);
    Poll(const Poll&) = delete;
    Poll& operator=(const Poll&) = delete;

private:
    void round();

    Scheduler& m_scheduler;
    std::chrono::milliseconds m_interval;
    std::function<void()> m_action;
    std::unique_ptr<Scheduled> m_next;
};

} // namespace tessivo

#include "app/model/Poll.h"

namespace tessivo {

Poll::Poll(Scheduler& scheduler, std::chrono::milliseconds interval, std::function<void()> action)
    : m_scheduler(scheduler), m_interval(interval), m_action(std::move(action)) {
    round();
}

void Poll::round() {
    // The next round is asked for first, so that an action may end its own poll.
    m_next = m_scheduler.after(m_interval, [this] { round(); });
    const auto action = m_action; // a copy: the action may end its own poll
    action();
}

} // namespace tessivo

#include "platform/simulated/ManualScheduler.h"

#include <algorithm>
#include <utility>

namespace tessivo {

struct ManualScheduler::Queue {
    using Key = std::pair<std::chrono::milliseconds, std::uint64_t>;

    std::chrono::milliseconds elapsed{0};
    std::uint64_t asked = 0;
    std::map<Key, std::function<void()>> waiting;
};

class ManualScheduler::Handle final : public Scheduled {
public:
    Handle(std::weak_ptr<Queue> queue, Queue::Key key) : m_queue(std::move(queue)), m_key(key) {}
    ~Handle() override {
        const auto queue = m_queue.lock();
        if (!queue) return;
        // The action goes last: it may hold the only reference to whoever cancels it.
        auto cancelled = queue->waiting.extract(m_key);
    }

private:
    std::weak_ptr<Queue> m_queue;
    Queue::Key m_key;
};

ManualScheduler::ManualScheduler(Date start) : m_start(start), m_queue(std::make_shared<Queue>()) {}

ManualScheduler::~ManualScheduler() = default;

Date ManualScheduler::now() const {
    return {m_start.seconds + std::chrono::duration<double>(m_queue->elapsed).count()};
}

std::unique_ptr<Scheduled> ManualScheduler::after(std::chrono::milliseconds delay,
                                                  std::function<void()> action) {
    const Queue::Key key{m_queue->elapsed + std::max(delay, std::chrono::milliseconds{0}), m_queue->asked++};
    m_queue->waiting.emplace(key, std::move(action));
    return std::make_unique<Handle>(m_queue, key);
}

void ManualScheduler::advance(std::chrono::milliseconds time) {
    const auto queue = m_queue;
    const auto until = queue->elapsed + time;
    while (!queue->waiting.empty()) {
        const auto first = queue->waiting.begin();
        if (first->first.first > until) break;
        queue->elapsed = std::max(queue->elapsed, first->first.first);
        const auto due = queue->waiting.extract(first);
        due.mapped()();
    }
    queue->elapsed = std::max(queue->elapsed, until);
}

std::size_t ManualScheduler::pending() const {
    return m_queue->waiting.size();
}

} // namespace tessivo

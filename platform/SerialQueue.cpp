#include "platform/SerialQueue.h"

#include <QThread>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>

namespace tessivo {
namespace {

constexpr std::chrono::seconds patience{2}; ///< for pieces that still run when the queue is let go

} // namespace

struct SerialQueue::State {
    class Thread;

    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::function<void()>> work;
    QThread* thread = nullptr; ///< null before the first piece
    bool ending = false;
    bool ended = false;

    void run() {
        std::unique_lock lock(mutex);
        for (;;) {
            changed.wait(lock, [this] { return ending || !work.empty(); });
            if (work.empty()) break;
            std::function<void()> piece = std::move(work.front());
            work.pop_front();
            lock.unlock();
            piece();
            piece = nullptr; // what it owned goes here, outside the lock
            lock.lock();
        }
        ended = true;
        changed.notify_all();
    }
};

class SerialQueue::State::Thread final : public QThread {
public:
    explicit Thread(std::shared_ptr<State> state) : m_state(std::move(state)) {}

protected:
    void run() override { m_state->run(); }

private:
    std::shared_ptr<State> m_state;
};

SerialQueue::SerialQueue(std::string label) : m_label(std::move(label)), m_state(std::make_shared<State>()) {}

SerialQueue::~SerialQueue() {
    std::unique_lock lock(m_state->mutex);
    if (!m_state->thread) return;
    m_state->ending = true;
    m_state->changed.notify_all();
    const bool ended = m_state->changed.wait_for(lock, patience, [this] { return m_state->ended; });
    lock.unlock();
    // A thread object can't go before its thread: with a piece that hangs both are left behind.
    if (!ended) return;
    m_state->thread->wait();
    delete m_state->thread;
}

void SerialQueue::async(std::function<void()> work) {
    const std::lock_guard lock(m_state->mutex);
    m_state->work.push_back(std::move(work));
    if (!m_state->thread) {
        m_state->thread = new State::Thread(m_state);
        m_state->thread->setObjectName(QString::fromStdString(m_label)); // the thread's name too
        m_state->thread->start();
    }
    m_state->changed.notify_all();
}

} // namespace tessivo

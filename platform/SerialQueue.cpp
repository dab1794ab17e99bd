#include "platform/SerialQueue.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <pthread.h>
#include <thread>

namespace tessivo {
namespace {

constexpr std::chrono::seconds patience{2}; ///< for pieces that still run when the queue is let go

} // namespace

struct SerialQueue::State {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::function<void()>> work;
    std::thread thread;
    bool ending = false;
    bool ended = false;

    static void run(std::shared_ptr<State> state, std::string label) {
        pthread_setname_np(pthread_self(), label.substr(0, 15).c_str());
        std::unique_lock lock(state->mutex);
        for (;;) {
            state->changed.wait(lock, [&] { return state->ending || !state->work.empty(); });
            if (state->work.empty()) break;
            std::function<void()> piece = std::move(state->work.front());
            state->work.pop_front();
            lock.unlock();
            piece();
            piece = nullptr; // what it owned goes here, outside the lock
            lock.lock();
        }
        state->ended = true;
        state->changed.notify_all();
    }
};

SerialQueue::SerialQueue(std::string label) : m_label(std::move(label)), m_state(std::make_shared<State>()) {}

SerialQueue::~SerialQueue() {
    std::unique_lock lock(m_state->mutex);
    if (!m_state->thread.joinable()) return;
    m_state->ending = true;
    m_state->changed.notify_all();
    const bool ended = m_state->changed.wait_for(lock, patience, [this] { return m_state->ended; });
    std::thread thread = std::move(m_state->thread);
    lock.unlock();
    if (ended)
        thread.join();
    else
        thread.detach();
}

void SerialQueue::async(std::function<void()> work) {
    const std::lock_guard lock(m_state->mutex);
    m_state->work.push_back(std::move(work));
    if (!m_state->thread.joinable()) m_state->thread = std::thread(&State::run, m_state, m_label);
    m_state->changed.notify_all();
}

} // namespace tessivo

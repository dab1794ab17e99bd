#include "platform/StopToken.h"

#include <atomic>
#include <mutex>

namespace tessivo {

struct StopToken::State {
    std::atomic<bool> stopped = false;
    std::mutex mutex; ///< held while actions run, so that a callback that goes waits for its own
    std::list<std::function<void()>> actions;
};

bool StopToken::stopRequested() const {
    return m_state && m_state->stopped;
}

StopSource::StopSource() {
    m_token.m_state = std::make_shared<StopToken::State>();
}

void StopSource::requestStop() {
    StopToken::State& state = *m_token.m_state;
    const std::lock_guard lock(state.mutex);
    if (state.stopped.exchange(true)) return;
    for (const auto& action : state.actions)
        action();
}

StopCallback::StopCallback(StopToken token, std::function<void()> action)
    : m_state(std::move(token.m_state)) {
    if (!m_state) return;
    const std::lock_guard lock(m_state->mutex);
    m_place = m_state->actions.insert(m_state->actions.end(), std::move(action));
    if (m_state->stopped) (*m_place)();
}

StopCallback::~StopCallback() {
    if (!m_state) return;
    const std::lock_guard lock(m_state->mutex);
    m_state->actions.erase(m_place);
}

} // namespace tessivo

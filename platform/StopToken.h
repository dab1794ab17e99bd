#pragma once

#include <functional>
#include <list>
#include <memory>

namespace tessivo {

/// Asks work on other threads to end, as the standard library's stop token does; some systems' libraries have
/// none. All three are for any thread.

class StopToken {
public:
    /// A token that is never stopped.
    StopToken() = default;

    bool stopRequested() const;

private:
    friend class StopSource;
    friend class StopCallback;
    struct State;

    std::shared_ptr<State> m_state;
};

/// Where the end is asked for. Copies ask for the same.
class StopSource {
public:
    StopSource();

    StopToken token() const { return m_token; }
    /// Returns when every callback has run.
    void requestStop();

private:
    StopToken m_token;
};

/// Runs an action when the token is stopped, on the thread that stops it; at once where it is stopped
/// already. The action only wakes whoever waits: it uses neither the token nor a lock under which callbacks
/// come and go. Once this is gone it neither runs nor is running.
class StopCallback final {
public:
    StopCallback(StopToken token, std::function<void()> action);
    ~StopCallback();
    StopCallback(const StopCallback&) = delete;
    StopCallback& operator=(const StopCallback&) = delete;

private:
    std::shared_ptr<StopToken::State> m_state;
    std::list<std::function<void()>>::iterator m_place;
};

} // namespace tessivo

#pragma once

#include <functional>
#include <memory>
#include <string>

namespace tessivo {

/// Work that runs one piece after another on a thread of its own, in the order it was given. The thread
/// begins with the first piece. Letting go of the queue waits a moment for what it still holds; a piece
/// that hangs longer is left behind with its thread, so a piece must own all it uses.
class SerialQueue final {
public:
    /// The label names the thread; the system shows its first 15 letters.
    explicit SerialQueue(std::string label);
    ~SerialQueue();
    SerialQueue(const SerialQueue&) = delete;
    SerialQueue& operator=(const SerialQueue&) = delete;

    /// Any thread; never waits.
    void async(std::function<void()> work);

private:
    struct State;

    std::string m_label;
    std::shared_ptr<State> m_state;
};

} // namespace tessivo

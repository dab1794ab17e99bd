#include "platform/simulated/SimulatedWording.h"

#include <stdexcept>

namespace tessivo {

struct SimulatedWording::Script {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<ScriptedAnswer> answers;
    std::vector<Call> calls;
    std::size_t releases = 0;
    bool ended = false;
};

class SimulatedWording::Model final : public WordingModel {
public:
    explicit Model(std::shared_ptr<Script> script) : m_script(std::move(script)) {}

    std::string rewrite(const std::string& instructions, const std::string& text) override {
        std::unique_lock lock(m_script->mutex);
        m_script->calls.push_back({instructions, text});
        ScriptedAnswer answer{text};
        if (auto& answers = m_script->answers; !answers.empty()) {
            answer = answers.front();
            if (answers.size() > 1) answers.pop_front();
        }
        const auto before = m_script->releases;
        const auto released = [&] { return m_script->ended || m_script->releases != before; };
        if (answer.waits)
            m_script->changed.wait(lock, released);
        else
            m_script->changed.wait_for(lock, answer.takes, released);
        if (answer.fails) throw std::runtime_error(answer.text);
        return answer.text;
    }

private:
    std::shared_ptr<Script> m_script;
};

SimulatedWording::SimulatedWording() : m_script(std::make_shared<Script>()) {}

SimulatedWording::~SimulatedWording() {
    const std::lock_guard lock(m_script->mutex);
    m_script->ended = true;
    m_script->changed.notify_all();
}

std::shared_ptr<WordingModel> SimulatedWording::makeModel() {
    return std::make_shared<Model>(m_script);
}

void SimulatedWording::setAnswers(std::vector<ScriptedAnswer> answers) {
    const std::lock_guard lock(m_script->mutex);
    m_script->answers.assign(std::make_move_iterator(answers.begin()),
                             std::make_move_iterator(answers.end()));
}

void SimulatedWording::release() {
    const std::lock_guard lock(m_script->mutex);
    ++m_script->releases;
    m_script->changed.notify_all();
}

std::vector<SimulatedWording::Call> SimulatedWording::calls() const {
    const std::lock_guard lock(m_script->mutex);
    return m_script->calls;
}

} // namespace tessivo

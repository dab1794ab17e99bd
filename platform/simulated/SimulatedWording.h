#pragma once

#include "platform/Desktop.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <vector>

namespace tessivo {

/// One scripted rewording.
struct ScriptedAnswer {
    std::string text;   ///< the rewording, or what the failure says
    bool fails = false; ///< the model throws
    bool waits = false; ///< not before `SimulatedWording::release`
    std::chrono::milliseconds takes{0};
};

/// A language model that answers from a script. `availability` and `makeModel` on the main thread, the
/// rest from any; a model may outlive the service.
class SimulatedWording final : public WordingService {
public:
    struct Call {
        std::string instructions;
        std::string text;
    };

    SimulatedWording();
    /// Ends every rewording that still waits.
    ~SimulatedWording() override;

    WordingAvailability availability() const override { return m_availability; }
    std::shared_ptr<WordingModel> makeModel() override;

    void setAvailability(WordingAvailability availability) { m_availability = availability; }
    /// The answers of the coming rewordings; the last one stays. Without any the text comes back as it is.
    void setAnswers(std::vector<ScriptedAnswer> answers);
    /// Lets the rewordings that wait now end.
    void release();
    std::vector<Call> calls() const;

private:
    struct Script;
    class Model;

    WordingAvailability m_availability = WordingAvailability::unsupported;
    std::shared_ptr<Script> m_script;
};

} // namespace tessivo

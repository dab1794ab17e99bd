#pragma once

#include "platform/linux/PortLoan.h"
#include "platform/linux/PulseServer.h"

#include <list>

namespace tessivo {

/// The ports of a server's sinks, to be borrowed for a tone. A port that can't be made the active one is
/// listed as refused from then on. The server's thread alone.
class PulsePorts final : public PulseClient, private SinkPorts {
public:
    explicit PulsePorts(PulseServer& server) : m_server(server) {}
    ~PulsePorts() override;
    PulsePorts(const PulsePorts&) = delete;
    PulsePorts& operator=(const PulsePorts&) = delete;

    /// As `PortLoan::take`; `told` gets the connection, which lasts for the call alone.
    using Told = std::function<void(pa_context*, PortLoan::Outcome)>;
    void take(const void* borrower, const std::string& sink, const std::string& port, Told told);
    void giveBack(const void* borrower) { m_loan.giveBack(borrower); }

    void devicesChanged(pa_context* context, const PulseSnapshot& devices) override;
    void disconnected() override;
    bool finish() override;

private:
    /// What the server was asked and hasn't answered yet.
    struct Question {
        PulsePorts* ports = nullptr;
        std::function<void(std::optional<std::string>)> seen;
        std::function<void(bool)> done;
        std::function<void()> action;
        std::optional<std::string> activePort;
        pa_operation* operation = nullptr;
        pa_time_event* timer = nullptr;
    };

    void look(const std::string& sink, std::function<void(std::optional<std::string>)> seen) override;
    void choose(const std::string& sink, const std::string& port, std::function<void(bool)> done) override;
    void later(std::chrono::milliseconds delay, std::function<void()> action) override;
    Question& question(Question asked);
    /// The question, which is none any more.
    static Question answered(void* data);
    void release(Question& question);

    PulseServer& m_server;
    pa_context* m_context = nullptr;
    std::list<Question> m_questions;
    PortLoan m_loan{*this};
};

} // namespace tessivo

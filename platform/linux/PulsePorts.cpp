#include "platform/linux/PulsePorts.h"

#include <algorithm>
#include <pulse/rtclock.h>
#include <utility>

namespace tessivo {

PulsePorts::~PulsePorts() = default;

void PulsePorts::take(const void* borrower, const std::string& sink, const std::string& port, Told told) {
    m_loan.take(borrower, sink, port, [=, this, told = std::move(told)](PortLoan::Outcome outcome) {
        if (outcome == PortLoan::Outcome::refused) m_server.refuse(sink, port);
        told(m_context, outcome);
    });
}

void PulsePorts::devicesChanged(pa_context* context, const PulseSnapshot& devices) {
    m_context = context;
    m_loan.see(devices);
}

void PulsePorts::disconnected() {
    for (Question& question : m_questions) {
        if (question.operation) pa_operation_cancel(question.operation);
        release(question);
    }
    m_questions.clear();
    m_context = nullptr;
    m_loan.disconnected();
}

bool PulsePorts::finish() {
    m_loan.giveBack();
    return m_loan.isSettled();
}

void PulsePorts::look(const std::string& sink, std::function<void(std::optional<std::string>)> seen) {
    Question& asked = question({.seen = std::move(seen)});
    asked.operation = pa_context_get_sink_info_by_name(
        m_context, sink.c_str(),
        [](pa_context*, const pa_sink_info* info, int end, void* data) {
            if (!end && info && info->active_port)
                static_cast<Question*>(data)->activePort = info->active_port->name;
            if (!end) return;
            const Question answer = answered(data);
            answer.seen(answer.activePort);
        },
        &asked);
    if (!asked.operation) answered(&asked).seen({});
}

void PulsePorts::choose(const std::string& sink, const std::string& port, std::function<void(bool)> done) {
    Question& asked = question({.done = std::move(done)});
    asked.operation = pa_context_set_sink_port_by_name(
        m_context, sink.c_str(), port.c_str(),
        [](pa_context*, int success, void* data) { answered(data).done(success); }, &asked);
    if (!asked.operation) answered(&asked).done(false);
}

void PulsePorts::later(std::chrono::milliseconds delay, std::function<void()> action) {
    Question& asked = question({.action = std::move(action)});
    asked.timer = pa_context_rttime_new(
        m_context, pa_rtclock_now() + pa_usec_t(std::chrono::microseconds(delay).count()),
        [](pa_mainloop_api*, pa_time_event*, const timeval*, void* data) { answered(data).action(); },
        &asked);
}

PulsePorts::Question& PulsePorts::question(Question asked) {
    asked.ports = this;
    return m_questions.emplace_back(std::move(asked));
}

PulsePorts::Question PulsePorts::answered(void* data) {
    auto* question = static_cast<Question*>(data);
    PulsePorts& ports = *question->ports;
    ports.release(*question);
    const auto place = std::ranges::find(ports.m_questions, question, [](Question& each) { return &each; });
    Question answer = std::move(*question);
    ports.m_questions.erase(place);
    return answer;
}

void PulsePorts::release(Question& question) {
    if (question.operation) pa_operation_unref(question.operation);
    if (question.timer) m_server.loop().time_free(question.timer);
}

} // namespace tessivo

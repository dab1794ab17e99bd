#include "platform/linux/PortLoan.h"

#include <algorithm>
#include <utility>

namespace tessivo {

bool PortLoan::Place::isActive(const PulseSnapshot& devices) const {
    const PulseSink* found = devices.sinkNamed(sink);
    if (!found || found->activePort != port) return false;
    const auto listed = std::ranges::find(found->ports, port, &PulsePort::name);
    return listed != found->ports.end() && listed->available != PulseAvailability::no;
}

void PortLoan::take(const void* borrower, const std::string& sink, const std::string& port, Told told) {
    const auto before = std::exchange(
        m_wanted,
        Wanted{.place = {sink, port}, .borrower = borrower, .told = std::move(told), .number = ++m_takes});
    if (before && before->borrower != borrower) before->told(Outcome::lost);
    if (!m_connected) return end(Outcome::lost);
    step();
}

void PortLoan::giveBack(const void* borrower) {
    if (m_wanted && m_wanted->borrower == borrower) giveBack();
}

void PortLoan::giveBack() {
    m_wanted.reset();
    step();
}

void PortLoan::see(const PulseSnapshot& devices) {
    m_connected = true;
    if (m_wanted && m_wanted->granted && !m_wanted->place.isActive(devices)) return end(Outcome::lost);
    if (m_wanted && m_wanted->agreed && m_wanted->place.isActive(devices)) return grant();
    // A server that came back may still have the port that was lent before it went.
    if (m_owed && devices.sinkNamed(m_owed->place.sink)) step();
}

void PortLoan::disconnected() {
    m_connected = m_asking = false;
    if (const auto wanted = std::exchange(m_wanted, {})) wanted->told(Outcome::lost);
}

void PortLoan::step() {
    if (m_asking || !m_connected) return;
    if (m_owed && !isWanted(m_owed->place))
        putBack();
    else if (m_wanted && !m_wanted->granted && !m_wanted->agreed)
        ask();
}

void PortLoan::ask() {
    m_asking = true;
    m_ports.look(m_wanted->place.sink,
                 [this, place = m_wanted->place](const std::optional<std::string>& active) {
                     m_asking = false;
                     if (!isWanted(place))
                         step();
                     else if (!active)
                         end(Outcome::refused);
                     else if (*active == place.port)
                         grant();
                     else
                         choose(place, *active);
                 });
}

void PortLoan::choose(const Place& place, const std::string& before) {
    m_owed = Owed{place, before};
    m_asking = true;
    m_ports.choose(place.sink, place.port, [this, place](bool done) {
        m_asking = false;
        if (!done) m_owed.reset();
        if (!isWanted(place))
            step();
        else if (done)
            verify();
        else
            end(Outcome::refused);
    });
}

void PortLoan::verify() {
    m_asking = true;
    m_ports.look(m_wanted->place.sink,
                 [this, place = m_wanted->place](const std::optional<std::string>& active) {
                     m_asking = false;
                     if (!isWanted(place)) return step();
                     if (active == place.port) return grant();
                     // Some servers agree first and switch a little later.
                     m_wanted->agreed = true;
                     m_ports.later(patience, [this, number = m_wanted->number] {
                         if (m_wanted && m_wanted->number == number && m_wanted->agreed)
                             end(Outcome::refused);
                     });
                 });
}

void PortLoan::grant() {
    m_wanted->agreed = false;
    m_wanted->granted = true;
    const Told told = m_wanted->told; // who may give back at once
    told(Outcome::granted);
}

void PortLoan::putBack() {
    m_asking = true;
    m_ports.look(m_owed->place.sink, [this](const std::optional<std::string>& active) {
        m_asking = false;
        if (isWanted(m_owed->place)) return step();
        if (active != m_owed->place.port) { // somebody chose another one meanwhile
            m_owed.reset();
            return step();
        }
        m_asking = true;
        m_ports.choose(m_owed->place.sink, m_owed->before, [this](bool) {
            m_asking = false;
            m_owed.reset();
            step();
        });
    });
}

void PortLoan::end(Outcome outcome) {
    const auto wanted = std::exchange(m_wanted, {});
    wanted->told(outcome);
    step();
}

} // namespace tessivo

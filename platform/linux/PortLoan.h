#pragma once

#include "platform/linux/PulseDevices.h"

#include <chrono>
#include <functional>

namespace tessivo {

/// What a loan asks of a sound server. Each answer comes once, on the thread that asked; none comes any more
/// once the connection is lost.
class SinkPorts {
public:
    virtual ~SinkPorts() = default;

    /// The sink's active port as it is now; nothing without such a sink or port.
    virtual void look(const std::string& sink, std::function<void(std::optional<std::string>)> seen) = 0;
    /// False when the server refuses.
    virtual void choose(const std::string& sink, const std::string& port, std::function<void(bool)> done) = 0;
    virtual void later(std::chrono::milliseconds delay, std::function<void()> action) = 0;
};

/// Makes a port the active one of its sink for as long as somebody plays there, and puts back the one that
/// was. It lends one port at a time. The server's thread alone.
class PortLoan final {
public:
    /// How long a port that the server agreed to may take to show up as the active one.
    static constexpr std::chrono::milliseconds patience{1000};

    /// `granted`: the server says that this port is the active one. `refused`: it can't be made so.
    /// `lost`: it was, and isn't any more, or the server went. After the last two nothing more comes.
    enum class Outcome { granted, refused, lost };
    using Told = std::function<void(Outcome)>;

    explicit PortLoan(SinkPorts& ports) : m_ports(ports) {}

    /// In place of what this or another borrower has; another one hears of it as lost.
    void take(const void* borrower, const std::string& sink, const std::string& port, Told told);
    /// Nothing more comes. Without effect from a borrower that has nothing.
    void giveBack(const void* borrower);
    void giveBack();
    /// The server's list of devices, not older than its last answer. Nothing is asked before the first one.
    void see(const PulseSnapshot& devices);
    /// The connection is lost. What was to be put back is put back when it is there again.
    void disconnected();
    /// Nothing is lent and nothing left to put back.
    bool isSettled() const { return !m_wanted && !m_owed && !m_asking; }

private:
    struct Place {
        std::string sink, port;
        bool operator==(const Place&) const = default;
        bool isActive(const PulseSnapshot& devices) const;
    };
    struct Wanted {
        Place place;
        const void* borrower = nullptr;
        Told told;
        bool granted = false;
        bool agreed = false; ///< by the server, but not seen as active yet
        int number = 0;
    };
    struct Owed {
        Place place;
        std::string before;
    };

    bool isWanted(const Place& place) const { return m_wanted && m_wanted->place == place; }
    void step();
    void ask();
    void choose(const Place& place, const std::string& before);
    void verify();
    void grant();
    void putBack();
    void end(Outcome outcome);

    SinkPorts& m_ports;
    std::optional<Wanted> m_wanted;
    std::optional<Owed> m_owed;
    bool m_connected = false;
    bool m_asking = false; ///< one question at a time, so that no answer meets another one's state
    int m_takes = 0;
};

} // namespace tessivo

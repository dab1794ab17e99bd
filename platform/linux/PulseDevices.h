#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tessivo {

/// What a sound server tells of its devices, as plain values.

enum class PulseAvailability { unknown, no, yes };

/// A connector of a device. `type` is the server's number for its kind; 0 from servers that don't tell.
struct PulsePort {
    std::string name;
    std::string description;
    std::uint32_t type = 0;
    PulseAvailability available = PulseAvailability::unknown;
};

/// A device that plays. `id` stays the same for a name for as long as the program runs.
struct PulseSink {
    std::uint32_t id = 0;
    std::string name;
    std::optional<std::string> description;
    std::string bus;        ///< "pci", "usb", "bluetooth" ..., empty when not told
    std::string formFactor; ///< "internal", "headset" ..., empty when not told
    std::string systemPath; ///< in sysfs, empty when not told
    std::uint32_t sampleRate = 0;
    std::uint32_t channelCount = 0;
    bool hasFrontPair = false; ///< one channel is named front left and one front right
    std::vector<PulsePort> ports;
    std::optional<std::string> activePort;

    /// "bltn" for the machine's own output, "usb ", "blue", "hdmi" or "virt".
    std::uint32_t transportType() const;
    /// The active port as a four-letter code. Nothing without one, and nothing for a jack that isn't known
    /// to hold a plug: an active jack means a plug that was seen.
    std::optional<std::uint32_t> dataSource() const;
    /// The name of the port with this code, the active one first.
    std::optional<std::string> dataSourceName(std::uint32_t code) const;
    /// 1 with something in a jack, 0 with nothing; nothing if no port tells.
    std::optional<std::uint32_t> jackState() const;

private:
    const PulsePort* active() const;
};

/// A device that records.
struct PulseSource {
    std::string name;
    std::optional<std::string> description;
    bool monitorsSink = false;
    std::uint32_t sampleRate = 0;
    std::uint32_t channelCount = 0;
    std::vector<PulsePort> ports;

    /// No echo of what plays, and not a row of jacks with nothing in them.
    bool isMicrophone() const;
};

/// All devices at one moment, in the server's order.
struct PulseSnapshot {
    enum class Server { connecting, absent, refused, connected };

    Server server = Server::connecting;
    std::vector<PulseSink> sinks;
    std::vector<PulseSource> sources;
    std::string defaultSink; ///< name; may be empty or of no sink in the list

    const PulseSink* sink(std::uint32_t id) const;
    const PulseSink* sinkNamed(const std::string& name) const;
    const PulseSource* sourceNamed(const std::string& name) const;
};

} // namespace tessivo

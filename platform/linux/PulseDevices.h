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
    std::uint32_t id = 0; ///< of a jack, as an output of its own; 0 for every other port
    bool refused = false; ///< the server wouldn't make it the active one since the plug came

    /// The kind as a four-letter code; nothing for a port that only says "output" or joins several.
    std::optional<std::uint32_t> kind() const;
    /// Takes headphones or goes out as a line.
    bool isJack() const;
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

    /// Soldered to the machine, whatever it plays through.
    bool isOnBoard() const;
    /// "bltn" for the machine's own output, "usb ", "blue", "hdmi" or "virt".
    std::uint32_t transportType() const;
    /// The active port's kind. Nothing without one, and nothing for a jack that isn't known to hold a plug:
    /// an active jack means a plug that was seen.
    std::optional<std::uint32_t> dataSource() const;
    /// The English name of this kind, where a port is of it: what a port is called comes in the server's
    /// language.
    std::optional<std::string> dataSourceName(std::uint32_t kind) const;
    /// 1 where the active port is a jack with something in it. 0 for an empty one, and where there are jacks
    /// but another port is active. Nothing without jacks, or if the active one doesn't tell.
    std::optional<std::uint32_t> jackState() const;

private:
    const PulsePort* active() const;
};

/// A device that records.
struct PulseSource {
    std::string name;
    std::optional<std::string> description;
    bool monitorsSink = false;
    bool isHardware = true; ///< false: made by the server, out of other sources or of nothing
    std::uint32_t sampleRate = 0;
    std::uint32_t channelCount = 0;
    std::vector<PulsePort> ports;

    /// Hardware, no echo of what plays, and no row of line inputs and of jacks with nothing in them.
    bool isMicrophone() const;
};

/// A sink as it plays now, or one jack of it.
struct PulseOutput {
    const PulseSink* sink = nullptr;
    const PulsePort* jack = nullptr; ///< null for the sink itself

    std::uint32_t id() const { return jack ? jack->id : sink->id; }
};

/// All devices at one moment, in the server's order.
struct PulseSnapshot {
    enum class Server { connecting, absent, refused, connected };

    Server server = Server::connecting;
    std::vector<PulseSink> sinks;
    std::vector<PulseSource> sources;
    std::string defaultSink; ///< name; may be empty or of no sink in the list

    /// Each sink, and before it those of its jacks that hold a plug: a jack is the same output whether or not
    /// it is the active port. Sinks that aren't the machine's own have no jacks of theirs.
    std::vector<PulseOutput> outputs() const;
    std::optional<PulseOutput> output(std::uint32_t id) const;
    const PulseSink* sinkNamed(const std::string& name) const;
    const PulseSource* sourceNamed(const std::string& name) const;
};

} // namespace tessivo

#include "platform/linux/PulseDevices.h"

#include "kit/hardware/AudioOutputInfo.h"
#include "kit/support/Text.h"

#include <algorithm>
#include <pulse/def.h>

namespace tessivo {
namespace {

constexpr std::uint32_t headphones = fourCharCode("hdpn");
constexpr std::uint32_t lineOut = fourCharCode("line");
constexpr std::uint32_t internalSpeaker = fourCharCode("ispk");
constexpr std::uint32_t digital = fourCharCode("spdf");
constexpr std::uint32_t hdmi = fourCharCode("hdmi");

/// The kind of a port as a four-letter code; nothing for a port that only says "output".
std::optional<std::uint32_t> code(const PulsePort& port) {
    switch (port.type) {
    case PA_DEVICE_PORT_TYPE_HEADPHONES:
    case PA_DEVICE_PORT_TYPE_HEADSET:
        return headphones;
    case PA_DEVICE_PORT_TYPE_SPEAKER:
        return internalSpeaker;
    case PA_DEVICE_PORT_TYPE_LINE:
        return lineOut;
    case PA_DEVICE_PORT_TYPE_SPDIF:
        return digital;
    case PA_DEVICE_PORT_TYPE_HDMI:
        return hdmi;
    default:
        break;
    }
    // Older servers give no type; the port's name is then all there is.
    const std::string name = Text::lowercased(port.name);
    const auto says = [&](const char* word) { return name.find(word) != std::string::npos; };
    if (says("headphone") || says("headset")) return headphones;
    if (says("lineout") || says("line out")) return lineOut;
    if (says("speaker")) return internalSpeaker;
    if (says("hdmi")) return hdmi;
    if (says("iec958") || says("spdif")) return digital;
    return std::nullopt;
}

bool isJack(const PulsePort& port) {
    const auto kind = code(port);
    return kind == headphones || kind == lineOut;
}

template <class Device>
const Device* named(const std::vector<Device>& devices, const std::string& name) {
    const auto found = std::ranges::find(devices, name, &Device::name);
    return found == devices.end() ? nullptr : &*found;
}

} // namespace

const PulsePort* PulseSink::active() const {
    return activePort ? named(ports, *activePort) : nullptr;
}

std::uint32_t PulseSink::transportType() const {
    if (bus == "usb") return fourCharCode("usb ");
    if (bus == "bluetooth") return fourCharCode("blue");
    if (const PulsePort* port = active(); port && code(*port) == hdmi) return hdmi;
    if (bus == "pci" || bus == "platform" || formFactor == "internal" ||
        (bus.empty() && systemPath.starts_with("/devices/platform/")))
        return fourCharCode("bltn");
    return fourCharCode("virt");
}

std::optional<std::uint32_t> PulseSink::dataSource() const {
    const PulsePort* port = active();
    if (!port || (isJack(*port) && port->available != PulseAvailability::yes)) return std::nullopt;
    return code(*port);
}

std::optional<std::string> PulseSink::dataSourceName(std::uint32_t wanted) const {
    if (const PulsePort* port = active(); port && code(*port) == wanted) return port->description;
    for (const PulsePort& port : ports)
        if (code(port) == wanted) return port.description;
    return std::nullopt;
}

std::optional<std::uint32_t> PulseSink::jackState() const {
    std::optional<std::uint32_t> state;
    for (const PulsePort& port : ports) {
        if (!isJack(port) || port.available == PulseAvailability::unknown) continue;
        if (port.available == PulseAvailability::yes) return 1;
        state = 0;
    }
    return state;
}

bool PulseSource::isMicrophone() const {
    const auto empty = [](const PulsePort& port) { return port.available == PulseAvailability::no; };
    return !monitorsSink && (ports.empty() || !std::ranges::all_of(ports, empty));
}

const PulseSink* PulseSnapshot::sink(std::uint32_t id) const {
    const auto found = std::ranges::find(sinks, id, &PulseSink::id);
    return found == sinks.end() ? nullptr : &*found;
}

const PulseSink* PulseSnapshot::sinkNamed(const std::string& name) const {
    return named(sinks, name);
}

const PulseSource* PulseSnapshot::sourceNamed(const std::string& name) const {
    return named(sources, name);
}

} // namespace tessivo

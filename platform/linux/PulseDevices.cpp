#include "platform/linux/PulseDevices.h"

#include "kit/hardware/AudioOutputInfo.h"
#include "kit/support/Text.h"

#include <algorithm>
#include <map>
#include <pulse/def.h>

namespace tessivo {
namespace {

constexpr std::uint32_t headphones = fourCharCode("hdpn");
constexpr std::uint32_t lineOut = fourCharCode("line");
constexpr std::uint32_t internalSpeaker = fourCharCode("ispk");
constexpr std::uint32_t digital = fourCharCode("spdf");
constexpr std::uint32_t hdmi = fourCharCode("hdmi");

const std::map<std::uint32_t, std::string> kindNames = {{headphones, "Headphones"},
                                                        {lineOut, "Line Out"},
                                                        {internalSpeaker, "Internal Speakers"},
                                                        {digital, "Digital Out"},
                                                        {hdmi, "HDMI"}};

template <class Device>
const Device* named(const std::vector<Device>& devices, const std::string& name) {
    const auto found = std::ranges::find(devices, name, &Device::name);
    return found == devices.end() ? nullptr : &*found;
}

} // namespace

std::optional<std::uint32_t> PulsePort::kind() const {
    // What plays through "[Out] Headphones+Speaker" plays through both, and says nothing of either.
    if (name.starts_with("[Out] ") && name.find('+') != std::string::npos) return std::nullopt;
    switch (type) {
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
    // Older servers give no type. Names aren't translated, as descriptions are.
    const std::string lowered = Text::lowercased(name);
    const auto says = [&](const char* word) { return lowered.find(word) != std::string::npos; };
    if (says("headphone") || says("headset")) return headphones;
    if (says("lineout") || says("line out") || lowered.starts_with("[out] line")) return lineOut;
    if (says("speaker")) return internalSpeaker;
    if (says("hdmi")) return hdmi;
    if (says("iec958") || says("spdif")) return digital;
    return std::nullopt;
}

bool PulsePort::isJack() const {
    const auto found = kind();
    return found == headphones || found == lineOut;
}

namespace {

/// Whether a microphone can be behind a port of a source.
bool takesMicrophone(const PulsePort& port) {
    if (port.available == PulseAvailability::no) return false;
    switch (port.type) {
    case PA_DEVICE_PORT_TYPE_AUX:
    case PA_DEVICE_PORT_TYPE_LINE:
    case PA_DEVICE_PORT_TYPE_SPDIF:
    case PA_DEVICE_PORT_TYPE_HDMI:
    case PA_DEVICE_PORT_TYPE_TV:
    case PA_DEVICE_PORT_TYPE_RADIO:
    case PA_DEVICE_PORT_TYPE_VIDEO:
        return false;
    case PA_DEVICE_PORT_TYPE_UNKNOWN:
        break;
    default:
        return true;
    }
    const std::string name = Text::lowercased(port.name);
    return std::ranges::none_of(
        std::initializer_list<const char*>{"linein", "line in", "[in] line", "iec958", "spdif"},
        [&](const char* word) { return name.find(word) != std::string::npos; });
}

} // namespace

const PulsePort* PulseSink::active() const {
    return activePort ? named(ports, *activePort) : nullptr;
}

bool PulseSink::isOnBoard() const {
    if (bus == "usb" || bus == "bluetooth") return false;
    return bus == "pci" || bus == "platform" || formFactor == "internal" ||
           (bus.empty() && systemPath.starts_with("/devices/platform/"));
}

std::uint32_t PulseSink::transportType() const {
    if (bus == "usb") return fourCharCode("usb ");
    if (bus == "bluetooth") return fourCharCode("blue");
    if (const PulsePort* port = active(); port && port->kind() == hdmi) return hdmi;
    return isOnBoard() ? fourCharCode("bltn") : fourCharCode("virt");
}

std::optional<std::uint32_t> PulseSink::dataSource() const {
    const PulsePort* port = active();
    if (!port || (port->isJack() && port->available != PulseAvailability::yes)) return std::nullopt;
    return port->kind();
}

std::optional<std::string> PulseSink::dataSourceName(std::uint32_t kind) const {
    const auto name = kindNames.find(kind);
    if (name == kindNames.end() || !std::ranges::count(ports, kind, &PulsePort::kind)) return std::nullopt;
    return name->second;
}

std::optional<std::uint32_t> PulseSink::jackState() const {
    if (std::ranges::none_of(ports, &PulsePort::isJack)) return std::nullopt;
    const PulsePort* port = active();
    if (!port || !port->isJack()) return 0;
    if (port->available == PulseAvailability::unknown) return std::nullopt;
    return port->available == PulseAvailability::yes;
}

bool PulseSource::isMicrophone() const {
    return isHardware && !monitorsSink && (ports.empty() || std::ranges::any_of(ports, takesMicrophone));
}

std::vector<PulseOutput> PulseSnapshot::outputs() const {
    std::vector<PulseOutput> list;
    for (const PulseSink& sink : sinks) {
        for (const PulsePort& port : sink.ports)
            if (sink.isOnBoard() && port.isJack() && port.available == PulseAvailability::yes &&
                !port.refused)
                list.push_back({&sink, &port});
        list.push_back({&sink});
    }
    return list;
}

std::optional<PulseOutput> PulseSnapshot::output(std::uint32_t id) const {
    const auto list = outputs();
    const auto found = std::ranges::find(list, id, &PulseOutput::id);
    return found == list.end() ? std::nullopt : std::optional(*found);
}

const PulseSink* PulseSnapshot::sinkNamed(const std::string& name) const {
    return named(sinks, name);
}

const PulseSource* PulseSnapshot::sourceNamed(const std::string& name) const {
    return named(sources, name);
}

} // namespace tessivo

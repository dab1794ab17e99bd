#include "platform/simulated/SimulatedAudio.h"

#include "kit/hardware/AudioOutputInfo.h"

#include <algorithm>

namespace tessivo {

namespace {

constexpr auto globalScope = fourCharCode("glob");
constexpr auto outputScope = fourCharCode("outp");
constexpr std::uint32_t numberSize = 4;
constexpr std::uint32_t textSize = 8; // a reference to a text object

/// Whether a device keeps the property under this scope.
bool isKept(const AudioAddress& address) {
    const bool global = address.selector == fourCharCode("tran") || address.selector == fourCharCode("lnam");
    return address.scope == (global ? globalScope : outputScope);
}

class SimulatedToneEngine final : public ToneEngine {
public:
    explicit SimulatedToneEngine(SimulatedMac& mac) : m_mac(mac) {}

    OutputFormat outputFormat() const override {
        const auto* device = currentDevice();
        if (!device || !device->format) return {};
        return {device->format->sampleRate.value, device->format->channelCount};
    }
    bool isRunning() const override { return m_running; }
    bool start() override {
        m_running = !m_mac.engineFails && currentDevice();
        return m_running;
    }
    void stop() override { m_running = false; }
    bool setDevice(std::uint32_t id) override {
        if (!m_mac.audioDevice(id)) return false;
        m_device = id;
        return true;
    }
    void schedule(std::vector<float> left, std::vector<float> right, double sampleRate) override {
        const auto sounds = [](float sample) { return sample != 0; };
        const auto* device = currentDevice();
        m_mac.tones.push_back({device ? std::optional(device->id) : std::nullopt,
                               std::ranges::any_of(left, sounds), std::ranges::any_of(right, sounds),
                               left.size(), sampleRate, m_running && device});
    }

private:
    const MachineFile::AudioDevice* currentDevice() const {
        if (m_device) return m_mac.audioDevice(*m_device);
        const auto& audio = m_mac.facts.audio;
        return audio && audio->defaultOutput ? m_mac.audioDevice(*audio->defaultOutput) : nullptr;
    }

    SimulatedMac& m_mac;
    std::optional<std::uint32_t> m_device;
    bool m_running = false;
};

} // namespace

const MachineFile::AudioProperties* SimulatedAudioObjects::device(std::uint32_t object) const {
    const auto* device = m_mac.reads(SimulatedReading::audio) ? m_mac.audioDevice(object) : nullptr;
    return device && device->properties ? &*device->properties : nullptr;
}

std::optional<std::uint32_t> SimulatedAudioObjects::number(const AudioAddress& address) const {
    const auto* found = isKept(address) ? device(address.object) : nullptr;
    return found ? found->number(address.selector) : std::nullopt;
}

bool SimulatedAudioObjects::hasProperty(const AudioAddress& address) const {
    return propertyDataSize(address).has_value();
}

std::optional<std::uint32_t> SimulatedAudioObjects::propertyDataSize(const AudioAddress& address) const {
    if (address.object != systemObject && address.selector == fourCharCode("stm#")) return number(address);
    if (const auto values = numbers(address)) return values->size() * numberSize;
    if (text(address)) return textSize;
    return std::nullopt;
}

std::optional<std::vector<std::uint32_t>> SimulatedAudioObjects::numbers(const AudioAddress& address) const {
    const auto& [object, selector, scope] = address;
    if (object == systemObject) {
        const auto& audio = m_mac.facts.audio;
        if (scope != globalScope || !audio || !m_mac.reads(SimulatedReading::audio)) return std::nullopt;
        if (selector == fourCharCode("dOut") && audio->defaultOutput)
            return std::vector{*audio->defaultOutput};
        if (selector != fourCharCode("dev#") || !audio->devices) return std::nullopt;
        std::vector<std::uint32_t> ids;
        for (const auto& entry : *audio->devices)
            ids.push_back(entry.id);
        return ids;
    }
    if (selector == fourCharCode("stm#"))
        return std::nullopt; // its data are stream ids, its size alone is told
    if (const auto value = number(address)) return std::vector{*value};
    return std::nullopt;
}

std::optional<std::string> SimulatedAudioObjects::text(const AudioAddress& address) const {
    const auto* found = isKept(address) ? device(address.object) : nullptr;
    return found && address.selector == fourCharCode("lnam") ? found->name : std::nullopt;
}

std::optional<std::string> SimulatedAudioObjects::translatedText(const AudioAddress& address,
                                                                 std::uint32_t code) const {
    const auto* found = isKept(address) ? device(address.object) : nullptr;
    if (!found || address.selector != fourCharCode("lscn") || !found->sources) return std::nullopt;
    const auto name = found->sources->find(code);
    if (name == found->sources->end()) return std::nullopt;
    return name->second;
}

std::unique_ptr<ToneEngine> SimulatedToneOutput::makeEngine() {
    return std::make_unique<SimulatedToneEngine>(m_mac);
}

} // namespace tessivo

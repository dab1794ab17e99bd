#pragma once

#include "platform/AudioObjects.h"
#include "platform/simulated/SimulatedMac.h"

namespace tessivo {

/// The audio devices of a simulated Mac under the selectors of their properties. Main thread.
class SimulatedAudioObjects final : public AudioObjects {
public:
    explicit SimulatedAudioObjects(const SimulatedMac& mac) : m_mac(mac) {}

    bool hasProperty(const AudioAddress& address) const override;
    std::optional<std::uint32_t> propertyDataSize(const AudioAddress& address) const override;
    std::optional<std::vector<std::uint32_t>> numbers(const AudioAddress& address) const override;
    std::optional<std::string> text(const AudioAddress& address) const override;
    std::optional<std::string> translatedText(const AudioAddress& address, std::uint32_t code) const override;

private:
    const MachineFile::AudioProperties* device(std::uint32_t object) const;
    std::optional<std::uint32_t> number(const AudioAddress& address) const;

    const SimulatedMac& m_mac;
};

/// Engines that record what is played. Main thread.
class SimulatedToneOutput final : public ToneOutput {
public:
    explicit SimulatedToneOutput(SimulatedMac& mac) : m_mac(mac) {}

    std::unique_ptr<ToneEngine> makeEngine() override;

private:
    SimulatedMac& m_mac;
};

} // namespace tessivo

#pragma once

#include "platform/AudioObjects.h"
#include "platform/linux/PulsePorts.h"

namespace tessivo {

/// Tones through the sound server: the samples reach the device as they are, at the device's own rate. While
/// one sounds in a jack, that jack is its sink's active port.
class LinuxToneOutput final : public ToneOutput {
public:
    explicit LinuxToneOutput(std::shared_ptr<PulseServer> server);

    std::unique_ptr<ToneEngine> makeEngine() override;

private:
    std::shared_ptr<PulseServer> m_server;
    std::shared_ptr<PulsePorts> m_ports;
};

} // namespace tessivo

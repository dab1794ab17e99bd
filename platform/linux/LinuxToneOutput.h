#pragma once

#include "platform/AudioObjects.h"
#include "platform/linux/PulseServer.h"

namespace tessivo {

/// Tones through the sound server: the samples reach the device as they are, at the device's own rate.
class LinuxToneOutput final : public ToneOutput {
public:
    explicit LinuxToneOutput(std::shared_ptr<PulseServer> server);

    std::unique_ptr<ToneEngine> makeEngine() override;

private:
    std::shared_ptr<PulseServer> m_server;
};

} // namespace tessivo

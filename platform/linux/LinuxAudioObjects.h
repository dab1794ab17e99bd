#pragma once

#include "platform/AudioObjects.h"
#include "platform/linux/PulseServer.h"

namespace tessivo {

/// The sound server's sinks as audio devices, and each of the machine's own jacks with a plug in it as one
/// more: one card is one sink, whose active port may stay the speaker. Answers from the server's snapshot.
class LinuxAudioObjects final : public AudioObjects {
public:
    explicit LinuxAudioObjects(std::shared_ptr<PulseServer> server);

    bool hasProperty(const AudioAddress& address) const override;
    std::optional<std::uint32_t> propertyDataSize(const AudioAddress& address) const override;
    std::optional<std::vector<std::uint32_t>> numbers(const AudioAddress& address) const override;
    std::optional<std::string> text(const AudioAddress& address) const override;
    std::optional<std::string> translatedText(const AudioAddress& address, std::uint32_t code) const override;

private:
    std::shared_ptr<PulseServer> m_server;
};

} // namespace tessivo

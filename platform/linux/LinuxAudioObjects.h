#pragma once

#include "platform/AudioObjects.h"
#include "platform/linux/PulseServer.h"

namespace tessivo {

/// The sound server's sinks as audio devices, and each of the machine's own jacks with a plug in it as one
/// more: one card is one sink, whose active port may stay the speaker. Answers from the server's snapshot.
class LinuxAudioObjects final : public AudioObjects {
public:
    explicit LinuxAudioObjects(std::shared_ptr<PulseServer> server);

    bool hasProperty(std::uint32_t object, std::uint32_t selector, std::uint32_t scope) const override;
    std::optional<std::uint32_t> propertyDataSize(std::uint32_t object, std::uint32_t selector,
                                                  std::uint32_t scope) const override;
    std::optional<std::vector<std::uint32_t>> numbers(std::uint32_t object, std::uint32_t selector,
                                                      std::uint32_t scope) const override;
    std::optional<std::string> text(std::uint32_t object, std::uint32_t selector,
                                    std::uint32_t scope) const override;
    std::optional<std::string> translatedText(std::uint32_t object, std::uint32_t selector,
                                              std::uint32_t scope, std::uint32_t code) const override;

private:
    std::shared_ptr<PulseServer> m_server;
};

} // namespace tessivo

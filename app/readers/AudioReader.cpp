#include "app/readers/Readers.h"

namespace tessivo {
namespace {

constexpr std::uint32_t global = fourCharCode("glob");
constexpr std::uint32_t output = fourCharCode("outp");

std::optional<std::uint32_t> number(const AudioObjects& audio, const AudioAddress& address) {
    if (!audio.hasProperty(address)) return std::nullopt;
    const auto numbers = audio.numbers(address);
    return numbers && !numbers->empty() ? std::optional(numbers->front()) : std::nullopt;
}

} // namespace

std::vector<AudioOutputInfo> readAudioOutputs(const AudioObjects& audio) {
    constexpr AudioAddress list{AudioObjects::systemObject, fourCharCode("dev#"), global};
    if (audio.propertyDataSize(list).value_or(0) == 0) return {};
    std::vector<AudioOutputInfo> outputs;
    const auto ids = audio.numbers(list);
    for (const std::uint32_t id : ids.value_or(std::vector<std::uint32_t>()))
        if (auto info = readAudioOutput(audio, id)) outputs.push_back(std::move(*info));
    return outputs;
}

std::optional<AudioOutputInfo> readAudioOutput(const AudioObjects& audio, std::uint32_t id) {
    AudioOutputProperties properties;
    properties.streamsSize = audio.propertyDataSize({id, fourCharCode("stm#"), output});
    if (properties.streamsSize.value_or(0) == 0) return std::nullopt;
    properties.transport = number(audio, {id, fourCharCode("tran"), global});
    properties.jack = number(audio, {id, fourCharCode("jack"), output});
    properties.name = audio.text({id, fourCharCode("lnam"), global});
    properties.dataSource = number(audio, {id, fourCharCode("ssrc"), output});
    if (properties.dataSource)
        properties.dataSourceName =
            audio.translatedText({id, fourCharCode("lscn"), output}, *properties.dataSource);
    return AudioOutputInfo::make(id, properties);
}

std::optional<std::string> readDefaultOutputName(const AudioObjects& audio) {
    const auto id = number(audio, {AudioObjects::systemObject, fourCharCode("dOut"), global});
    return id ? audio.text({*id, fourCharCode("lnam"), global}) : std::nullopt;
}

} // namespace tessivo

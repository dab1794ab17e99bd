#include "kit/hardware/AudioOutputInfo.h"

#include "kit/support/Text.h"

namespace tessivo {
namespace {

bool namesAJack(const std::string& name) {
    const std::string lowered = Text::lowercased(name);
    for (const char* word : {"headphone", "line out", "external"})
        if (lowered.find(word) != std::string::npos) return true;
    return false;
}

} // namespace

std::string fourCharCode(std::uint32_t value) {
    const char bytes[] = {char(value >> 24), char(value >> 16), char(value >> 8), char(value)};
    return Text::repaired({bytes, sizeof bytes});
}

std::optional<AudioOutputInfo> AudioOutputInfo::make(std::uint32_t id,
                                                     const AudioOutputProperties& properties) {
    if (properties.streamsSize.value_or(0) == 0) return std::nullopt;
    AudioOutputInfo output;
    output.id = id;
    output.name = properties.name.value_or("Output");
    output.builtIn = properties.transport == fourCharCode("bltn");
    if (properties.jack) output.jackConnected = *properties.jack != 0;
    if (properties.dataSource) {
        output.dataSource = fourCharCode(*properties.dataSource);
        output.dataSourceName = properties.dataSourceName;
    }
    return output;
}

std::optional<AudioOutputInfo> HeadphoneDetect::find(const std::vector<AudioOutputInfo>& outputs) {
    // An active headphone source is proof enough; a mere name asks the jack too.
    for (const AudioOutputInfo& output : outputs)
        if (output.builtIn &&
            (output.dataSource == "hdpn" || (output.dataSourceName && namesAJack(*output.dataSourceName))))
            return output;
    for (const AudioOutputInfo& output : outputs)
        if (output.builtIn && namesAJack(output.name) && output.jackConnected.value_or(true)) return output;
    return std::nullopt;
}

} // namespace tessivo

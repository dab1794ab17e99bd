#include "platform/linux/LinuxAudioObjects.h"

#include "kit/hardware/AudioOutputInfo.h"

namespace tessivo {
namespace {

constexpr std::uint32_t global = fourCharCode("glob");
constexpr std::uint32_t output = fourCharCode("outp");

using Numbers = std::optional<std::vector<std::uint32_t>>;

Numbers one(std::optional<std::uint32_t> number) {
    if (!number) return std::nullopt;
    return Numbers{{*number}};
}

Numbers systemNumbers(const PulseSnapshot& devices, std::uint32_t selector) {
    if (selector == fourCharCode("dev#")) {
        std::vector<std::uint32_t> ids;
        for (const PulseOutput& output : devices.outputs())
            ids.push_back(output.id());
        return ids;
    }
    const PulseSink* sink = devices.sinkNamed(devices.defaultSink);
    if (selector == fourCharCode("dOut") && sink) return one(sink->id);
    return std::nullopt;
}

Numbers outputNumbers(const PulseOutput& device, std::uint32_t selector, std::uint32_t scope) {
    const PulseSink& sink = *device.sink;
    if (scope == global && selector == fourCharCode("tran"))
        return one(device.jack ? fourCharCode("bltn") : sink.transportType());
    if (scope != output) return std::nullopt;
    if (selector == fourCharCode("stm#")) // one stream for each output, under the output's own number
        return sink.channelCount > 0 ? one(device.id()) : Numbers{std::in_place};
    if (selector == fourCharCode("ssrc")) return one(device.jack ? device.jack->kind() : sink.dataSource());
    if (selector == fourCharCode("jack")) return one(device.jack ? 1 : sink.jackState());
    return std::nullopt;
}

} // namespace

LinuxAudioObjects::LinuxAudioObjects(std::shared_ptr<PulseServer> server) : m_server(std::move(server)) {}

bool LinuxAudioObjects::hasProperty(const AudioAddress& address) const {
    return numbers(address) || text(address);
}

std::optional<std::uint32_t> LinuxAudioObjects::propertyDataSize(const AudioAddress& address) const {
    const auto found = numbers(address);
    if (!found) return std::nullopt;
    return std::uint32_t(found->size() * sizeof(std::uint32_t));
}

std::optional<std::vector<std::uint32_t>> LinuxAudioObjects::numbers(const AudioAddress& address) const {
    const auto devices = m_server->snapshot();
    if (devices->server != PulseSnapshot::Server::connected) return std::nullopt;
    const auto& [object, selector, scope] = address;
    if (object == systemObject) return scope == global ? systemNumbers(*devices, selector) : std::nullopt;
    const auto device = devices->output(object);
    return device ? outputNumbers(*device, selector, scope) : std::nullopt;
}

std::optional<std::string> LinuxAudioObjects::text(const AudioAddress& address) const {
    const auto devices = m_server->snapshot();
    const auto device = devices->output(address.object);
    if (!device || address.selector != fourCharCode("lnam") || address.scope != global) return std::nullopt;
    if (!device->jack) return device->sink->description;
    return device->jack->description.empty() ? device->jack->name : device->jack->description;
}

std::optional<std::string> LinuxAudioObjects::translatedText(const AudioAddress& address,
                                                             std::uint32_t code) const {
    const auto devices = m_server->snapshot();
    const auto device = devices->output(address.object);
    if (!device || address.selector != fourCharCode("lscn") || address.scope != output) return std::nullopt;
    return device->sink->dataSourceName(code);
}

} // namespace tessivo

#include "app/readers/MachineCapture.h"

#include "app/readers/Readers.h"
#include "kit/hardware/RegistryNames.h"
#include "kit/support/Text.h"

#include <future>

namespace tessivo {

namespace {

constexpr std::uint32_t global = fourCharCode("glob");
constexpr std::uint32_t output = fourCharCode("outp");

PropertyMap operatingSystem(const MachineFacts& facts) {
    const OperatingSystem system = facts.operatingSystem();
    PropertyMap map{{"major", system.major}, {"minor", system.minor}, {"patch", system.patch}};
    if (system.title) map["title"] = *system.title;
    return map;
}

PropertyMap sysctls(const MachineFacts& facts) {
    PropertyMap map;
    for (const char* name : {SystemFact::model, SystemFact::processor, SystemFact::build})
        if (const auto value = sysctlText(facts, name)) map[name] = *value;
    return map;
}

PropertyMap entryMap(const RegistryEntry& entry) {
    PropertyMap map{{"class", entry.className}};
    if (entry.properties) map["properties"] = *entry.properties;
    return map;
}

PropertyMap registryMap(const Registry& registry) {
    PropertyMap map;
    const std::string network = RegistryClass::network;
    for (const char* name :
         {RegistryClass::machine, RegistryClass::battery, RegistryClass::usbDevice, network.c_str()}) {
        const auto entries = registry.matchingServices(name);
        if (!entries) continue;
        PropertyList list;
        for (const RegistryEntry& entry : *entries) {
            PropertyMap map = entryMap(entry);
            // The one parent that a reading asks for.
            const auto parent = name == network ? entry.parent() : nullptr;
            if (parent) map["parent"] = entryMap(*parent);
            list.push_back(map);
        }
        map[name] = list;
    }
    return map;
}

PropertyMap toolRuns(const SystemTools& tools) {
    PropertyMap map;
    const auto run = std::async(std::launch::async, [&] {
                         return tools.run(enrollmentTool, enrollmentArguments(), std::stop_token());
                     }).get();
    if (run)
        map[enrollmentTool] =
            PropertyMap{{"exitStatus", run->exitStatus}, {"output", Text::repaired(run->standardOutput)}};
    return map;
}

std::optional<std::uint32_t> number(const AudioObjects& audio, std::uint32_t object,
                                    const char (&selector)[5], std::uint32_t scope) {
    const auto values = audio.numbers(object, fourCharCode(selector), scope);
    if (!values || values->empty()) return std::nullopt;
    return values->front();
}

PropertyMap audioDevice(const AudioObjects& audio, ToneEngine* engine, std::uint32_t id) {
    PropertyMap properties;
    if (const auto name = audio.text(id, fourCharCode("lnam"), global)) properties["lnam"] = *name;
    if (const auto transport = number(audio, id, "tran", global))
        properties["tran"] = fourCharCode(*transport);
    if (const auto size = audio.propertyDataSize(id, fourCharCode("stm#"), output))
        properties["stm#"] = std::int64_t(*size);
    if (const auto jack = number(audio, id, "jack", output)) properties["jack"] = std::int64_t(*jack);
    if (const auto source = number(audio, id, "ssrc", output)) {
        properties["ssrc"] = fourCharCode(*source);
        if (const auto name = audio.translatedText(id, fourCharCode("lscn"), output, *source))
            properties["lscn"] = PropertyMap{{fourCharCode(*source), *name}};
    }
    PropertyMap device{{"id", std::int64_t(id)}, {"properties", properties}};
    if (engine && engine->setDevice(id)) {
        const OutputFormat format = engine->outputFormat();
        device["format"] = PropertyMap{{"sampleRate", format.sampleRate},
                                       {"channelCount", std::int64_t(format.channelCount)}};
    }
    return device;
}

PropertyMap audioMap(const AudioObjects& audio, ToneOutput& tones) {
    PropertyMap map;
    if (const auto id = number(audio, AudioObjects::systemObject, "dOut", global))
        map["defaultOutput"] = std::int64_t(*id);
    if (const auto ids = audio.numbers(AudioObjects::systemObject, fourCharCode("dev#"), global)) {
        const auto engine = tones.makeEngine();
        PropertyList devices;
        for (const std::uint32_t id : *ids)
            devices.push_back(audioDevice(audio, engine.get(), id));
        map["devices"] = devices;
    }
    return map;
}

std::optional<PropertyList> captureList(const CaptureDevices& capture, MediaType type) {
    const CaptureList found = capture.devices(type);
    if (!found.devices) return std::nullopt;
    PropertyList list;
    for (const CaptureDevice& device : *found.devices)
        list.push_back(PropertyMap{{"uniqueID", device.uniqueID}, {"localizedName", device.localizedName}});
    return list;
}

const char* statusName(AuthorizationStatus status) {
    switch (status) {
    case AuthorizationStatus::notDetermined:
        return "notDetermined";
    case AuthorizationStatus::restricted:
        return "restricted";
    case AuthorizationStatus::denied:
        return "denied";
    case AuthorizationStatus::authorized:
        return "authorized";
    }
    return "notDetermined";
}

} // namespace

PropertyMap captureFacts(const MachineFacts& facts, const Registry& registry, const PowerSources& sources) {
    PropertyMap map{
        {"operatingSystem", operatingSystem(facts)},
        {"sysctl", sysctls(facts)},
        {"physicalMemory", std::int64_t(facts.physicalMemory())},
        {"registry", registryMap(registry)},
    };
    if (const auto capacity = readStartupCapacity(facts)) map["startupVolumeTotalCapacity"] = *capacity;
    if (const auto descriptions = sources.descriptions()) map["powerSources"] = *descriptions;
    return map;
}

PropertyMap captureMachine(Platform& platform) {
    platform.waitForDevices();
    const CaptureDevices& capture = platform.captureDevices();
    PropertyMap map = captureFacts(platform.machineFacts(), platform.registry(), platform.powerSources());
    map["tools"] = toolRuns(platform.systemTools());
    map["audio"] = audioMap(platform.audioObjects(), platform.toneOutput());
    if (const auto list = captureList(capture, MediaType::audio)) map["microphones"] = *list;
    if (const auto list = captureList(capture, MediaType::video)) map["cameras"] = *list;
    map["access"] = PropertyMap{{"audio", statusName(capture.authorizationStatus(MediaType::audio))},
                                {"video", statusName(capture.authorizationStatus(MediaType::video))}};
    return map;
}

} // namespace tessivo

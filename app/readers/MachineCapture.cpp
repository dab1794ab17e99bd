#include "app/readers/MachineCapture.h"

#include "kit/hardware/RegistryNames.h"

#include "app/readers/Readers.h"

#include <cmath>
#include <future>
#include <utility>

namespace tessivo {

namespace {

constexpr std::uint32_t global = fourCharCode("glob");
constexpr std::uint32_t output = fourCharCode("outp");

std::map<std::string, std::string> sysctls(const MachineFacts& facts) {
    std::map<std::string, std::string> texts;
    for (const char* name : {SystemFact::model, SystemFact::processor, SystemFact::build})
        if (auto text = sysctlText(facts, name)) texts.emplace(name, *std::move(text));
    return texts;
}

std::map<std::string, std::vector<RegistryEntry>> registryEntries(const Registry& registry) {
    std::map<std::string, std::vector<RegistryEntry>> found;
    for (const std::string name :
         {RegistryClass::machine, RegistryClass::battery, RegistryClass::usbDevice, RegistryClass::network}) {
        auto entries = registry.matchingServices(name);
        if (!entries) continue;
        for (RegistryEntry& entry : *entries) {
            // The one parent that a reading asks for.
            const auto parent = name == RegistryClass::network ? entry.parent() : nullptr;
            entry.readParent = nullptr;
            if (parent) entry.setParent({parent->className, parent->properties, nullptr});
        }
        found.emplace(name, *std::move(entries));
    }
    return found;
}

std::map<std::string, MachineFile::Tool> toolRuns(const SystemTools& tools) {
    const auto run = std::async(std::launch::async, [&] {
                         return tools.run(enrollmentTool, enrollmentArguments(), StopToken());
                     }).get();
    if (!run) return {};
    const bool fits = std::in_range<std::uint8_t>(run->exitStatus);
    return {{enrollmentTool, {std::uint8_t(fits ? run->exitStatus : 255), run->standardOutput}}};
}

std::optional<std::uint32_t> number(const AudioObjects& audio, std::uint32_t object,
                                    const char (&selector)[5], std::uint32_t scope) {
    const auto values = audio.numbers({object, fourCharCode(selector), scope});
    if (!values || values->empty()) return std::nullopt;
    return values->front();
}

MachineFile::AudioDevice audioDevice(const AudioObjects& audio, ToneEngine* engine, std::uint32_t id) {
    MachineFile::AudioProperties properties;
    properties.name = audio.text({id, fourCharCode("lnam"), global});
    properties.transport = number(audio, id, "tran", global);
    properties.streamsSize = audio.propertyDataSize({id, fourCharCode("stm#"), output});
    properties.jack = number(audio, id, "jack", output);
    properties.dataSource = number(audio, id, "ssrc", output);
    if (const auto source = properties.dataSource)
        if (const auto name = audio.translatedText({id, fourCharCode("lscn"), output}, *source))
            properties.sources = {{*source, *name}};
    MachineFile::AudioDevice device{id, properties, std::nullopt};
    if (engine && engine->setDevice(id)) {
        const OutputFormat format = engine->outputFormat();
        device.format = {{std::isfinite(format.sampleRate) ? format.sampleRate : 0}, format.channelCount};
    }
    return device;
}

MachineFile::Audio audioDevices(const AudioObjects& audio, ToneOutput& tones) {
    MachineFile::Audio found;
    found.defaultOutput = number(audio, AudioObjects::systemObject, "dOut", global);
    if (const auto ids = audio.numbers({AudioObjects::systemObject, fourCharCode("dev#"), global})) {
        const auto engine = tones.makeEngine();
        found.devices.emplace();
        for (const std::uint32_t id : *ids)
            found.devices->push_back(audioDevice(audio, engine.get(), id));
    }
    return found;
}

MachineFile::CaptureEntries captureEntries(const CaptureDevices& capture, MediaType type) {
    const CaptureList found = capture.devices(type);
    if (!found.devices) return std::nullopt;
    std::vector<MachineFile::CaptureEntry> entries;
    for (const CaptureDevice& device : *found.devices)
        entries.push_back({device.uniqueID, device.localizedName, std::nullopt});
    return entries;
}

} // namespace

MachineFile captureFacts(const MachineFacts& facts, const Registry& registry, const PowerSources& sources) {
    MachineFile file;
    file.operatingSystem = facts.operatingSystem();
    file.sysctl = sysctls(facts);
    file.physicalMemory = facts.physicalMemory();
    file.startupVolumeTotalCapacity = readStartupCapacity(facts);
    file.registry = registryEntries(registry);
    file.powerSources = sources.descriptions();
    return file;
}

MachineFile captureMachine(Platform& platform) {
    platform.waitForDevices();
    const CaptureDevices& capture = platform.captureDevices();
    MachineFile file = captureFacts(platform.machineFacts(), platform.registry(), platform.powerSources());
    file.tools = toolRuns(platform.systemTools());
    file.audio = audioDevices(platform.audioObjects(), platform.toneOutput());
    file.microphones = captureEntries(capture, MediaType::audio);
    file.cameras = captureEntries(capture, MediaType::video);
    file.access = {capture.authorizationStatus(MediaType::audio),
                   capture.authorizationStatus(MediaType::video)};
    return file;
}

} // namespace tessivo

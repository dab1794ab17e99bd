#include "platform/simulated/MachineFile.h"

#include "kit/hardware/AudioOutputInfo.h"
#include "kit/support/Files.h"
#include "kit/support/Json.h"
#include "kit/support/PropertyJson.h"
#include "kit/support/Text.h"

#include <limits>
#include <system_error>

namespace tessivo {

namespace {

template <class T>
constexpr const char* typeName = "";
template <>
constexpr const char* typeName<bool> = "a boolean";
template <>
constexpr const char* typeName<std::int64_t> = "a whole number";
template <>
constexpr const char* typeName<std::string> = "a text";
template <>
constexpr const char* typeName<PropertyMap> = "an object";
template <>
constexpr const char* typeName<PropertyList> = "an array";

std::string joinedPath(const std::string& path, const std::string& key) {
    return path.empty() ? key : path + "." + key;
}

/// A value and where it stands in the file.
struct Value {
    const Property& property;
    std::string path;

    template <class T>
    const T& as() const {
        if (const auto* value = std::get_if<T>(&property.value)) return *value;
        throw DecodingError(path, std::string("expected ") + typeName<T>);
    }

    /// The value of a key of an object; null and a missing key are nothing.
    std::optional<Value> find(const std::string& key) const {
        const auto& map = as<PropertyMap>();
        const auto entry = map.find(key);
        if (entry == map.end() || std::holds_alternative<std::monostate>(entry->second.value))
            return std::nullopt;
        return Value{entry->second, joinedPath(path, key)};
    }

    Value need(const std::string& key) const {
        if (auto value = find(key)) return *value;
        throw DecodingError(joinedPath(path, key), "missing");
    }

    template <class T>
    std::optional<T> optional(const std::string& key) const {
        if (const auto value = find(key)) return value->as<T>();
        return std::nullopt;
    }

    template <class Action>
    void forEachEntry(Action action) const {
        const auto& list = as<PropertyList>();
        for (std::size_t i = 0; i < list.size(); ++i)
            action(Value{list[i], path + "[" + std::to_string(i) + "]"});
    }

    template <class Action>
    void forEachKey(Action action) const {
        for (const auto& entry : as<PropertyMap>())
            if (const auto value = find(entry.first)) action(entry.first, *value);
    }

    std::uint32_t number() const {
        const std::int64_t value = as<std::int64_t>();
        if (value < 0 || value > std::numeric_limits<std::uint32_t>::max())
            throw DecodingError(path, "out of range");
        return std::uint32_t(value);
    }
};

std::uint32_t code(const std::string& letters, const std::string& path) {
    if (letters.size() != 4) throw DecodingError(path, "expected a code of four letters");
    char text[5] = {letters[0], letters[1], letters[2], letters[3], 0};
    return fourCharCode(text);
}

OperatingSystem decodeOperatingSystem(const Value& value) {
    return {value.optional<std::string>("title"), value.need("major").as<std::int64_t>(),
            value.need("minor").as<std::int64_t>(), value.need("patch").as<std::int64_t>()};
}

RegistryEntry decodeEntry(const Value& value) {
    RegistryEntry entry;
    entry.className = value.optional<std::string>("class").value_or("");
    entry.properties = value.optional<PropertyMap>("properties");
    if (const auto parent = value.find("parent")) entry.setParent(decodeEntry(*parent));
    return entry;
}

ToolRun decodeTool(const Value& value) {
    const Value status = value.need("exitStatus");
    const auto exitStatus = status.as<std::int64_t>();
    if (exitStatus < 0 || exitStatus > 255) throw DecodingError(status.path, "out of range");
    return {int(exitStatus), value.optional<std::string>("output").value_or("")};
}

MachineFile::AudioDevice decodeAudioDevice(const Value& value) {
    MachineFile::AudioDevice device;
    device.id = value.need("id").number();
    if (const auto properties = value.find("properties")) {
        device.name = properties->optional<std::string>("lnam");
        for (const char* selector : {"tran", "ssrc"})
            if (const auto letters = properties->find(selector))
                device.numbers[selector] = code(letters->as<std::string>(), letters->path);
        for (const char* selector : {"stm#", "jack"})
            if (const auto number = properties->find(selector)) device.numbers[selector] = number->number();
        if (const auto names = properties->find("lscn"))
            names->forEachKey([&](const std::string& letters, const Value& name) {
                device.sources[code(letters, name.path)] = name.as<std::string>();
            });
    }
    if (const auto format = value.find("format")) {
        device.format.channelCount = format->need("channelCount").number();
        const Value rate = format->need("sampleRate");
        device.format.sampleRate = std::holds_alternative<double>(rate.property.value)
                                       ? rate.as<double>()
                                       : double(rate.as<std::int64_t>());
    }
    return device;
}

MachineFile::Audio decodeAudio(const Value& value) {
    MachineFile::Audio audio;
    if (const auto output = value.find("defaultOutput")) audio.defaultOutput = output->number();
    if (const auto devices = value.find("devices")) {
        audio.devices.emplace();
        devices->forEachEntry(
            [&](const Value& entry) { audio.devices->push_back(decodeAudioDevice(entry)); });
    }
    return audio;
}

std::vector<MachineFile::CaptureEntry> decodeCaptureDevices(const Value& value) {
    std::vector<MachineFile::CaptureEntry> devices;
    value.forEachEntry([&](const Value& entry) {
        devices.push_back({{entry.need("uniqueID").as<std::string>(),
                            entry.optional<std::string>("localizedName").value_or("")},
                           entry.optional<bool>("opens").value_or(true)});
    });
    return devices;
}

AuthorizationStatus decodeStatus(const Value& value) {
    static const std::map<std::string, AuthorizationStatus> statuses = {
        {"notDetermined", AuthorizationStatus::notDetermined},
        {"restricted", AuthorizationStatus::restricted},
        {"denied", AuthorizationStatus::denied},
        {"authorized", AuthorizationStatus::authorized}};
    const auto& word = value.as<std::string>();
    const auto status = statuses.find(word);
    if (status == statuses.end()) throw DecodingError(value.path, "unknown case \"" + word + "\"");
    return status->second;
}

} // namespace

MachineFile MachineFile::decode(const PropertyMap& map) {
    const Property whole(map);
    const Value root{whole, ""};
    MachineFile file;
    if (const auto value = root.find("operatingSystem")) file.operatingSystem = decodeOperatingSystem(*value);
    if (const auto value = root.find("sysctl"))
        value->forEachKey(
            [&](const std::string& name, const Value& text) { file.sysctl[name] = text.as<std::string>(); });
    if (const auto value = root.find("physicalMemory")) {
        const auto bytes = value->as<std::int64_t>();
        if (bytes < 0) throw DecodingError(value->path, "out of range");
        file.physicalMemory = std::uint64_t(bytes);
    }
    file.startupVolumeTotalCapacity = root.optional<std::int64_t>("startupVolumeTotalCapacity");
    if (const auto value = root.find("registry"))
        value->forEachKey([&](const std::string& className, const Value& entries) {
            auto& list = file.registry[className];
            entries.forEachEntry([&](const Value& entry) { list.push_back(decodeEntry(entry)); });
        });
    file.powerSources = root.optional<PropertyList>("powerSources");
    if (const auto value = root.find("tools"))
        value->forEachKey(
            [&](const std::string& path, const Value& tool) { file.tools[path] = decodeTool(tool); });
    if (const auto value = root.find("audio")) file.audio = decodeAudio(*value);
    if (const auto value = root.find("microphones"))
        file.captureDevices[MediaType::audio] = decodeCaptureDevices(*value);
    if (const auto value = root.find("cameras"))
        file.captureDevices[MediaType::video] = decodeCaptureDevices(*value);
    if (const auto value = root.find("access")) {
        if (const auto audio = value->find("audio")) file.access[MediaType::audio] = decodeStatus(*audio);
        if (const auto video = value->find("video")) file.access[MediaType::video] = decodeStatus(*video);
    }
    return file;
}

PropertyMap loadMachineFile(const std::filesystem::path& path) {
    std::string fault;
    try {
        PropertyMap map = parsePropertyMap(Files::read(path, MachineFile::largestFile));
        MachineFile::decode(map);
        return map;
    } catch (const std::system_error& error) {
        fault = error.code().message();
    } catch (const DecodingError& error) {
        fault = error.what();
    }
    throw std::runtime_error(Text::singleLine(path.string() + ": " + fault));
}

} // namespace tessivo

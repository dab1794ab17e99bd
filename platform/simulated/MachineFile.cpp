#include "platform/simulated/MachineFile.h"

#include "kit/hardware/AudioOutputInfo.h"
#include "kit/support/Files.h"
#include "kit/support/PropertyJson.h"
#include "kit/support/Text.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace tessivo {

namespace {

using AudioCode = MachineFile::AudioCode;
using AudioProperties = MachineFile::AudioProperties;
using AudioSources = std::map<AudioCode, std::string>;

AudioCode codeOf(std::string_view text, const Json::Path& path) {
    AudioCode code;
    if (text.size() == 4) {
        for (const char letter : text)
            code.number = code.number << 8 | std::uint8_t(letter);
        return code;
    }
    const auto end = text.data() + text.size();
    if (text.size() != 10 || !text.starts_with("0x") ||
        std::from_chars(text.data() + 2, end, code.number, 16).ptr != end)
        path.fail("not a code of four letters but " + Json::quoted(text));
    return code;
}

std::string textOf(AudioCode code) {
    const std::string letters = fourCharCode(code.number);
    if (std::ranges::all_of(letters, [](char letter) { return std::uint8_t(letter) < 0x80; })) return letters;
    char text[11];
    std::snprintf(text, sizeof text, "0x%08x", unsigned(code.number));
    return text;
}

/// Every property with its selector, in the order of these.
template <class Properties, class Visit>
void forEachProperty(Properties& properties, Visit visit) {
    visit("jack", properties.jack);
    visit("lnam", properties.name);
    visit("lscn", properties.sources);
    visit("ssrc", properties.dataSource);
    visit("stm#", properties.streamsSize);
    visit("tran", properties.transport);
}

} // namespace

namespace Json {

template <>
struct Form<AudioCode> {
    static AudioCode read(const Value& value, const Path& path) {
        return codeOf(readText(value, path), path);
    }
    static void write(Writer& writer, AudioCode code) { writer.write(textOf(code)); }
};

template <>
struct Form<AudioSources> {
    static AudioSources read(const Value& value, const Path& path) {
        AudioSources sources;
        for (auto& [letters, name] : Reader<std::map<std::string, std::string>>::read(value, path, {}))
            sources.emplace(codeOf(letters, Path(path, letters)), name);
        return sources;
    }
    static void write(Writer& writer, const AudioSources& sources) {
        std::map<std::string, std::string> texts;
        for (const auto& [code, name] : sources)
            texts.emplace(textOf(code), name);
        writer.write(texts);
    }
};

template <>
struct Form<AudioProperties> {
    static AudioProperties read(const Value& value, const Path& path) {
        AudioProperties properties;
        for (const Value& field : readObject(value, path))
            forEachProperty(properties, [&](std::string_view selector, auto& property) {
                using Read = typename std::remove_reference_t<decltype(property)>::value_type;
                if (field.key != selector) return;
                property.reset();
                if (field.type != Value::Type::null)
                    property = Reader<Read>::read(field, Path(path, selector), {});
            });
        return properties;
    }
    static void write(Writer& writer, const AudioProperties& properties) {
        writer.open('{');
        forEachProperty(properties, [&](std::string_view selector, const auto& property) {
            if (!property) return;
            writer.writeKey(selector);
            writer.write(*property);
        });
        writer.close('}');
    }
};

template <>
struct Form<MachineFile::Fraction> {
    static MachineFile::Fraction read(const Value& value, const Path& path) {
        return {readDouble(value, path)};
    }
    static void write(Writer& writer, MachineFile::Fraction number) { writer.writeFraction(number.value); }
};

/// The entry above stands in the entry, and so on.
template <>
struct Form<RegistryEntry> {
    static RegistryEntry read(const Value& value, const Path& path) {
        RegistryEntry entry;
        for (const Value& field : readObject(value, path)) {
            const Path here(path, field.key);
            const bool isNull = field.type == Value::Type::null;
            if (field.key == "class")
                entry.className = isNull ? std::string() : std::string(readText(field, here));
            if (field.key == "parent")
                isNull ? void(entry.readParent = nullptr) : entry.setParent(read(field, here));
            if (field.key != "properties") continue;
            entry.properties.reset();
            if (!isNull) entry.properties = Reader<PropertyMap>::read(field, here, {});
        }
        return entry;
    }
    static void write(Writer& writer, const RegistryEntry& entry) {
        writer.open('{');
        writer.writeKey("class");
        writer.write(entry.className);
        if (const auto parent = entry.parent()) {
            writer.writeKey("parent");
            write(writer, *parent);
        }
        if (entry.properties) {
            writer.writeKey("properties");
            writer.write(*entry.properties);
        }
        writer.close('}');
    }
};

} // namespace Json

std::optional<std::uint32_t> AudioProperties::number(std::uint32_t selector) const {
    switch (selector) {
    case fourCharCode("jack"):
        return jack;
    case fourCharCode("ssrc"):
        return dataSource;
    case fourCharCode("stm#"):
        return streamsSize;
    case fourCharCode("tran"):
        return transport;
    default:
        return std::nullopt;
    }
}

MachineFile MachineFile::decode(std::string_view json) {
    return Json::read<MachineFile>(json, Json::DateForm::iso8601);
}

std::string MachineFile::encode() const {
    return Json::write(*this, Json::Layout::prettySorted, Json::DateForm::iso8601);
}

MachineFile loadMachineFile(const std::filesystem::path& path) {
    std::string fault;
    try {
        return MachineFile::decode(Files::read(path, MachineFile::largestFile));
    } catch (const std::system_error& error) {
        fault = error.code().message();
    } catch (const DecodingError& error) {
        fault = error.what();
    }
    throw std::runtime_error(Text::singleLine(path.string() + ": " + fault));
}

} // namespace tessivo

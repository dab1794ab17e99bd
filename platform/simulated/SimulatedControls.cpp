#include "platform/simulated/SimulatedControls.h"

#include "kit/hardware/RegistryNames.h"

#include "kit/hardware/AudioOutputInfo.h"

#include <algorithm>

namespace tessivo {

namespace {

using AudioDevice = MachineFile::AudioDevice;

constexpr const char* jackDeviceName = "External Headphones";

/// Whether the location lies behind the hub's: a device's place has its hub's places in front.
bool isBehind(std::int64_t location, std::int64_t hub) {
    if (hub == 0 || location == hub) return false;
    std::int64_t below = 0; // the places that the hub leaves free
    while (!(hub & (below << 4 | 0xF)))
        below = below << 4 | 0xF;
    return (location & ~below) == hub;
}

void set(PropertyMap& map, const std::string& key, Property value) {
    if (std::holds_alternative<std::monostate>(value.value))
        map.erase(key);
    else
        map[key] = std::move(value);
}

bool isBuiltInOutput(const AudioDevice& device) {
    return device.properties && device.properties->number(fourCharCode("tran")) == fourCharCode("bltn") &&
           device.properties->streamsSize.value_or(0) > 0;
}

} // namespace

std::vector<RegistryEntry>& SimulatedControls::entries(const std::string& className) {
    if (!facts().registry) facts().registry.emplace();
    return (*facts().registry)[className];
}

void SimulatedControls::plugUSB(PropertyMap properties) {
    entries(RegistryClass::usbDevice).push_back({RegistryClass::usbDevice, std::move(properties), nullptr});
}

void SimulatedControls::plugUSB(const std::string& name, std::int64_t vendorID, std::int64_t productID,
                                std::uint32_t locationID, std::int64_t deviceClass, std::int64_t speed) {
    plugUSB({{RegistryKey::productName, name},
             {RegistryKey::vendorID, vendorID},
             {RegistryKey::productID, productID},
             {RegistryKey::locationID, std::int64_t(locationID)},
             {RegistryKey::deviceClass, deviceClass},
             {RegistryKey::deviceSpeed, speed}});
}

bool SimulatedControls::unplugUSB(std::uint32_t locationID) {
    return std::erase_if(entries(RegistryClass::usbDevice), [&](const RegistryEntry& entry) {
               const auto location =
                   entry.properties ? integer(*entry.properties, RegistryKey::locationID) : std::nullopt;
               return location && (*location == locationID || isBehind(*location, locationID));
           }) > 0;
}

bool SimulatedControls::setLink(const std::string& bsdName, std::int64_t status, std::int64_t bitsPerSecond) {
    auto& interfaces = entries(RegistryClass::network);
    const auto entry = std::ranges::find_if(interfaces, [&](const RegistryEntry& candidate) {
        return candidate.properties && text(*candidate.properties, RegistryKey::interfaceName) == bsdName;
    });
    if (entry == interfaces.end()) return false;
    const auto parent = entry->parent();
    auto controller = parent ? *parent : RegistryEntry{};
    if (!controller.properties) controller.properties.emplace();
    (*controller.properties)[RegistryKey::linkStatus] = status;
    (*controller.properties)[RegistryKey::linkSpeed] = bitsPerSecond;
    entry->setParent(std::move(controller));
    return true;
}

void SimulatedControls::setBattery(const std::string& key, Property value) {
    auto& batteries = entries(RegistryClass::battery);
    if (batteries.empty()) batteries.push_back({RegistryClass::battery, PropertyMap{}, nullptr});
    auto& properties = batteries.front().properties;
    if (!properties) properties.emplace();
    set(*properties, key, std::move(value));
}

void SimulatedControls::setPowerSource(const std::string& key, Property value) {
    auto& sources = facts().powerSources;
    if (!sources) sources.emplace();
    if (sources->empty()) sources->emplace_back(PropertyMap{});
    if (auto* source = std::get_if<PropertyMap>(&sources->front().value)) set(*source, key, std::move(value));
}

void SimulatedControls::removeBattery() {
    entries(RegistryClass::battery).clear();
    facts().powerSources = PropertyList{};
}

void SimulatedControls::setEnrolled(bool enrolled) {
    setEnrollmentAnswer(enrolled ? "Enrolled via DEP: Yes\nMDM enrollment: Yes (User Approved)\n"
                                 : "Enrolled via DEP: No\nMDM enrollment: No\n");
}

void SimulatedControls::insertHeadphones(JackForm form) {
    pullHeadphones();
    if (!facts().audio) facts().audio.emplace();
    auto& audio = *facts().audio;
    if (!audio.devices) audio.devices.emplace();
    // What is pulled later is what stands now.
    m_pullHeadphones = [this, before = audio] { facts().audio = before; };

    auto& devices = *audio.devices;
    if (form == JackForm::dataSource) {
        const auto output = std::ranges::find_if(devices, isBuiltInOutput);
        if (output == devices.end()) return;
        output->properties->dataSource = fourCharCode("hdpn");
        if (!output->properties->sources) output->properties->sources.emplace();
        output->properties->sources->emplace(fourCharCode("hdpn"), "Headphones");
        return;
    }
    auto jack = std::ranges::find_if(devices, [](const AudioDevice& device) {
        return device.properties && device.properties->name == jackDeviceName;
    });
    if (jack == devices.end()) {
        std::uint32_t id = AudioObjects::systemObject;
        for (const auto& device : devices)
            id = std::max(id, device.id);
        jack = devices.insert(jack, {.id = id + 1, .format = {{48000, 2}}});
        jack->properties = {.name = jackDeviceName, .streamsSize = 4, .transport = fourCharCode("bltn")};
    }
    jack->properties->jack = 1;
    audio.defaultOutput = jack->id;
}

void SimulatedControls::pullHeadphones() {
    if (const auto pull = std::exchange(m_pullHeadphones, nullptr)) pull();
}

void SimulatedControls::addDevice(MediaType type, CaptureDevice device) {
    auto& entries = facts().captureEntries(type);
    if (!entries) entries.emplace();
    entries->push_back({std::move(device.uniqueID), std::move(device.localizedName), std::nullopt});
}

void SimulatedControls::removeDevice(MediaType type, const std::string& deviceID) {
    if (auto& entries = facts().captureEntries(type))
        std::erase_if(*entries, [&](const auto& entry) { return entry.uniqueID == deviceID; });
    capture().setBehaviour(deviceID, {});
}

void SimulatedControls::failList(MediaType type, std::optional<CaptureList::Fault> fault) {
    if (fault)
        mac().listFaults[type] = *fault;
    else
        mac().listFaults.erase(type);
}

void SimulatedControls::setOpens(MediaType type, const std::string& deviceID, bool opens) {
    if (auto& entries = facts().captureEntries(type))
        for (auto& entry : *entries)
            if (entry.uniqueID == deviceID) entry.opens = opens;
}

bool SimulatedControls::feed(const std::string& microphoneID, std::vector<float> samples, int channelCount) {
    return capture().deliver(microphoneID,
                             [samples = std::move(samples), channelCount](CaptureDelegate& delegate) {
                                 delegate.audio({samples, channelCount});
                             });
}

bool SimulatedControls::sendFrames(const std::string& cameraID, std::size_t count) {
    return capture().deliver(cameraID, [count](CaptureDelegate& delegate) {
        for (std::size_t frame = 0; frame < count; ++frame)
            delegate.video(testPicture(frame));
    });
}

void SimulatedControls::touch(const std::vector<FingerPosition>& fingers) {
    // A handler may stop the touches while it runs.
    if (const auto handler = mac().fingers.touches) handler(fingers);
}

void SimulatedControls::gesture(Gesture gesture) {
    if (const auto handler = mac().fingers.gesture) handler(gesture);
}

void SimulatedControls::setHistoryReadOnly(bool readOnly) {
    using std::filesystem::perms;
    const auto folders = m_platform.folders().applicationSupport();
    if (folders.empty()) return;
    const auto history = folders.front() / "History";
    std::error_code error; // a folder that can't be made is as unwritable as one could wish
    std::filesystem::create_directories(history, error);
    std::filesystem::permissions(
        history, perms::owner_write,
        readOnly ? std::filesystem::perm_options::remove : std::filesystem::perm_options::add, error);
}

} // namespace tessivo

#include "kit/hardware/AudioOutputInfo.h"
#include "platform/AudioObjects.h"
#include "tests/macos/system/StandIn.h"

#include <AudioToolbox/AudioToolbox.h>

#include <algorithm>
#include <cstring>

using namespace tessivo;

struct StandInComponent {
    std::uint32_t subtype;
};
struct StandInUnit : StandIn::Unit {};

namespace {

StandIn& mac() {
    return StandIn::shared();
}

constexpr OSStatus unknownProperty = 0x77686f3f; // "who?"
constexpr OSStatus badProperty = -10879;
constexpr OSStatus isInitialized = -10849;
constexpr OSStatus isUninitialized = -10867;
constexpr std::uint32_t global = fourCharCode("glob");
constexpr std::uint32_t output = fourCharCode("outp");

const MachineFile::AudioDevice* deviceOf(std::uint32_t id) {
    if (!mac().audio.devices) return nullptr;
    const auto found = std::ranges::find(*mac().audio.devices, id, &MachineFile::AudioDevice::id);
    return found == mac().audio.devices->end() ? nullptr : &*found;
}

/// The property's data as bytes, but for texts, which are made when they are asked for.
std::optional<std::string> data(std::uint32_t object, const AudioObjectPropertyAddress& address) {
    if (address.mElement != kAudioObjectPropertyElementMain) return std::nullopt;
    const auto numbers = [](const std::vector<std::uint32_t>& values) {
        return std::string(reinterpret_cast<const char*>(values.data()),
                           values.size() * sizeof(std::uint32_t));
    };
    const std::string selector = fourCharCode(address.mSelector);
    if (object == AudioObjects::systemObject) {
        if (address.mScope != global) return std::nullopt;
        if (selector == "dOut" && mac().audio.defaultOutput) return numbers({*mac().audio.defaultOutput});
        if (selector != "dev#" || !mac().audio.devices) return std::nullopt;
        std::vector<std::uint32_t> ids;
        for (const auto& device : *mac().audio.devices)
            ids.push_back(device.id);
        return numbers(ids);
    }
    const auto* device = deviceOf(object);
    const bool isGlobal = selector == "tran" || selector == "lnam";
    if (!device || address.mScope != (isGlobal ? global : output)) return std::nullopt;
    const auto properties = device->properties.value_or(MachineFile::AudioProperties());
    if (selector == "lnam" && properties.name) return std::string(sizeof(CFStringRef), '\0');
    if (selector == "lscn") return std::string(sizeof(AudioValueTranslation), '\0');
    const auto value = properties.number(address.mSelector);
    if (!value) return std::nullopt;
    return selector == "stm#" ? std::string(*value, '\0') : numbers({*value});
}

void give(const std::string& text, const char* call, void* to) {
    StandIn::Object* made = mac().copy(*mac().constant(text), std::string("the text of ") + call);
    made->isConstant = false;
    const void* object = mac().own(made);
    std::memcpy(to, &object, sizeof object);
}

OSStatus enter(AudioUnit unit, const char* call) {
    if (std::ranges::none_of(mac().units, [&](const auto& each) { return each.get() == unit; }))
        StandIn::fail(std::string(call) + " was given a unit that was disposed of");
    return mac().enters(call) ? noErr : kAudio_ParamError;
}

/// The device behind a unit: the one set, or the person's choice.
const MachineFile::AudioDevice* target(AudioUnit unit) {
    if (unit->subtype == kAudioUnitSubType_HALOutput) return deviceOf(unit->device);
    return mac().audio.defaultOutput ? deviceOf(*mac().audio.defaultOutput) : nullptr;
}

} // namespace

Boolean AudioObjectHasProperty(AudioObjectID object, const AudioObjectPropertyAddress* address) {
    return mac().enters("AudioObjectHasProperty") && data(object, *address);
}

OSStatus AudioObjectGetPropertyDataSize(AudioObjectID object, const AudioObjectPropertyAddress* address,
                                        UInt32, const void*, UInt32* size) {
    if (!mac().enters("AudioObjectGetPropertyDataSize")) return kAudio_ParamError;
    const auto bytes = data(object, *address);
    if (!bytes) return unknownProperty;
    *size = UInt32(bytes->size());
    return noErr;
}

OSStatus AudioObjectGetPropertyData(AudioObjectID object, const AudioObjectPropertyAddress* address, UInt32,
                                    const void*, UInt32* size, void* to) {
    if (!mac().enters("AudioObjectGetPropertyData")) return kAudio_ParamError;
    const auto bytes = data(object, *address);
    if (!bytes) return unknownProperty;
    const auto* device = deviceOf(object);
    if (address->mSelector == kAudioObjectPropertyName) {
        give(*device->properties->name, "AudioObjectGetPropertyData", to);
    } else if (address->mSelector == kAudioDevicePropertyDataSourceNameForIDCFString) {
        const auto* translation = static_cast<const AudioValueTranslation*>(to);
        std::uint32_t code = 0;
        std::memcpy(&code, translation->mInputData, sizeof code);
        const auto sources =
            device->properties->sources.value_or(std::map<MachineFile::AudioCode, std::string>());
        const auto name = sources.find(code);
        if (name == sources.end()) return unknownProperty;
        give(name->second, "the translation", translation->mOutputData);
    } else {
        *size = std::min(*size, UInt32(bytes->size()));
        std::copy_n(bytes->data(), *size, static_cast<char*>(to));
    }
    return noErr;
}

AudioComponent AudioComponentFindNext(AudioComponent, const AudioComponentDescription* description) {
    static StandInComponent components[] = {{kAudioUnitSubType_DefaultOutput}, {kAudioUnitSubType_HALOutput}};
    if (!mac().enters("AudioComponentFindNext") || description->componentType != kAudioUnitType_Output)
        return nullptr;
    for (StandInComponent& component : components)
        if (component.subtype == description->componentSubType) return &component;
    return nullptr;
}

OSStatus AudioComponentInstanceNew(AudioComponent component, AudioUnit* unit) {
    if (!mac().enters("AudioComponentInstanceNew")) return kAudio_ParamError;
    auto made = std::make_unique<StandInUnit>();
    made->subtype = component->subtype;
    *unit = made.get();
    mac().units.push_back(std::move(made));
    return noErr;
}

OSStatus AudioComponentInstanceDispose(AudioUnit unit) {
    enter(unit, "AudioComponentInstanceDispose");
    if (unit->isRunning) StandIn::fail("a unit was disposed of while it runs");
    std::erase_if(mac().units, [&](const auto& each) { return each.get() == unit; });
    return noErr;
}

OSStatus AudioUnitInitialize(AudioUnit unit) {
    if (const OSStatus status = enter(unit, "AudioUnitInitialize")) return status;
    if (!target(unit)) return kAudio_ParamError;
    unit->isInitialized = true;
    return noErr;
}

OSStatus AudioUnitUninitialize(AudioUnit unit) {
    enter(unit, "AudioUnitUninitialize");
    if (unit->isRunning) StandIn::fail("a unit was uninitialized while it runs");
    unit->isInitialized = false;
    return noErr;
}

OSStatus AudioOutputUnitStart(AudioUnit unit) {
    if (const OSStatus status = enter(unit, "AudioOutputUnitStart")) return status;
    if (!unit->isInitialized) return isUninitialized;
    unit->isRunning = true;
    return noErr;
}

OSStatus AudioOutputUnitStop(AudioUnit unit) {
    enter(unit, "AudioOutputUnitStop");
    unit->isRunning = false;
    return noErr;
}

OSStatus AudioUnitGetProperty(AudioUnit unit, UInt32 property, UInt32 scope, AudioUnitElement, void* value,
                              UInt32* size) {
    if (const OSStatus status = enter(unit, "AudioUnitGetProperty")) return status;
    const auto* device = target(unit);
    if (property == kAudioOutputUnitProperty_IsRunning && *size == sizeof(UInt32)) {
        const UInt32 running = unit->isRunning && device;
        std::memcpy(value, &running, sizeof running);
        return noErr;
    }
    if (property != kAudioUnitProperty_StreamFormat || *size != sizeof(AudioStreamBasicDescription) ||
        !device)
        return badProperty;
    AudioStreamBasicDescription format{};
    // The side of the device; on the other one is what the program set.
    format.mSampleRate =
        scope == kAudioUnitScope_Output ? device->format->sampleRate.value : unit->clientRate;
    format.mChannelsPerFrame = scope == kAudioUnitScope_Output ? device->format->channelCount : 2;
    std::memcpy(value, &format, sizeof format);
    return noErr;
}

OSStatus AudioUnitSetProperty(AudioUnit unit, UInt32 property, UInt32 scope, AudioUnitElement element,
                              const void* value, UInt32 size) {
    if (const OSStatus status = enter(unit, "AudioUnitSetProperty")) return status;
    if (element != 0) return badProperty;
    if (property == kAudioOutputUnitProperty_CurrentDevice && size == sizeof(AudioObjectID)) {
        if (unit->subtype != kAudioUnitSubType_HALOutput || scope != kAudioUnitScope_Global)
            return badProperty;
        if (unit->isInitialized) return isInitialized;
        std::memcpy(&unit->device, value, sizeof unit->device);
        return deviceOf(unit->device) ? noErr : kAudio_ParamError;
    }
    if (scope != kAudioUnitScope_Input) return badProperty;
    if (property == kAudioUnitProperty_StreamFormat && size == sizeof(AudioStreamBasicDescription)) {
        const auto* format = static_cast<const AudioStreamBasicDescription*>(value);
        const UInt32 wanted =
            UInt32(kAudioFormatFlagsNativeFloatPacked) | UInt32(kAudioFormatFlagIsNonInterleaved);
        if (unit->isInitialized) return isInitialized;
        if (format->mFormatID != kAudioFormatLinearPCM || format->mFormatFlags != wanted ||
            format->mChannelsPerFrame != 2 || format->mBytesPerFrame != sizeof(float) ||
            format->mBitsPerChannel != 32)
            return badProperty;
        unit->clientRate = format->mSampleRate;
        return noErr;
    }
    if (property != kAudioUnitProperty_SetRenderCallback || size != sizeof(AURenderCallbackStruct))
        return badProperty;
    unit->render = [callback = *static_cast<const AURenderCallbackStruct*>(value)](float* left, float* right,
                                                                                   std::uint32_t frames) {
        const auto bytes = UInt32(frames * sizeof(float));
        AudioBufferList buffers{.mNumberBuffers = 2, .mBuffers = {{1, bytes, left}, {1, bytes, right}}};
        AudioUnitRenderActionFlags flags = 0;
        return callback.inputProc(callback.inputProcRefCon, &flags, nullptr, 0, frames, &buffers) == noErr;
    };
    return noErr;
}

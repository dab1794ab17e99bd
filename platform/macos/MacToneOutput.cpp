#include "platform/macos/MacToneOutput.h"

#include "platform/macos/ToneSource.h"

#include <AudioToolbox/AudioToolbox.h>

namespace tessivo {

namespace {

constexpr AudioUnitElement outputBus = 0;
constexpr double fallbackRate = 48000; ///< Hz, for a device that tells none

class MacToneEngine final : public ToneEngine {
public:
    MacToneEngine() { makeUnit(kAudioUnitSubType_DefaultOutput); }
    ~MacToneEngine() override { disposeUnit(); }

    OutputFormat outputFormat() const override {
        AudioStreamBasicDescription format{};
        UInt32 size = sizeof format;
        if (!m_unit || AudioUnitGetProperty(m_unit, kAudioUnitProperty_StreamFormat, kAudioUnitScope_Output,
                                            outputBus, &format, &size) != noErr)
            return {};
        return {.sampleRate = format.mSampleRate, .channelCount = format.mChannelsPerFrame};
    }

    /// The unit's own answer: it ends by itself when its device goes.
    bool isRunning() const override {
        UInt32 running = 0;
        UInt32 size = sizeof running;
        return m_unit &&
               AudioUnitGetProperty(m_unit, kAudioOutputUnitProperty_IsRunning, kAudioUnitScope_Global,
                                    outputBus, &running, &size) == noErr &&
               running != 0;
    }

    bool start() override {
        stop(); // a unit whose device went says that it doesn't run, and still wants to be stopped
        const double rate = outputFormat().sampleRate;
        return m_unit && prepare(rate > 0 ? rate : fallbackRate) && AudioOutputUnitStart(m_unit) == noErr;
    }

    void stop() override {
        if (m_unit) {
            AudioOutputUnitStop(m_unit);
            uninitialize();
        }
        m_source.clear();
    }

    bool setDevice(std::uint32_t id) override {
        // Another kind of unit: the one that follows the person's choice takes no device. Where this fails
        // there is none, so that what was meant for one device sounds on no other.
        disposeUnit();
        makeUnit(kAudioUnitSubType_HALOutput);
        const AudioObjectID device = id;
        if (m_unit &&
            AudioUnitSetProperty(m_unit, kAudioOutputUnitProperty_CurrentDevice, kAudioUnitScope_Global,
                                 outputBus, &device, sizeof device) == noErr)
            return true;
        disposeUnit();
        return false;
    }

    void schedule(std::vector<float> left, std::vector<float> right, double sampleRate) override {
        if (!isRunning()) return;
        if (sampleRate != m_rate) {
            AudioOutputUnitStop(m_unit);
            m_source.clear();
            if (!prepare(sampleRate) || AudioOutputUnitStart(m_unit) != noErr) return;
        }
        m_source.publish(std::move(left), std::move(right));
    }

private:
    void makeUnit(OSType subtype) {
        AudioComponentDescription description{};
        description.componentType = kAudioUnitType_Output;
        description.componentSubType = subtype;
        description.componentManufacturer = kAudioUnitManufacturer_Apple;
        AudioComponent component = AudioComponentFindNext(nullptr, &description);
        if (!component || AudioComponentInstanceNew(component, &m_unit) != noErr) {
            m_unit = nullptr;
            return;
        }
        const AURenderCallbackStruct callback{.inputProc = &render, .inputProcRefCon = &m_source};
        if (AudioUnitSetProperty(m_unit, kAudioUnitProperty_SetRenderCallback, kAudioUnitScope_Input,
                                 outputBus, &callback, sizeof callback) != noErr)
            disposeUnit();
    }

    void disposeUnit() {
        stop();
        if (m_unit) AudioComponentInstanceDispose(m_unit);
        m_unit = nullptr;
    }

    void uninitialize() {
        if (m_initialized) AudioUnitUninitialize(m_unit);
        m_initialized = false;
    }

    /// Two channels of floats at this rate go in; the unit makes of them what its device takes.
    bool prepare(double rate) {
        uninitialize();
        AudioStreamBasicDescription format{};
        format.mSampleRate = rate;
        format.mFormatID = kAudioFormatLinearPCM;
        format.mFormatFlags = AudioFormatFlags(kAudioFormatFlagsNativeFloatPacked) |
                              AudioFormatFlags(kAudioFormatFlagIsNonInterleaved);
        format.mBytesPerPacket = sizeof(float);
        format.mFramesPerPacket = 1;
        format.mBytesPerFrame = sizeof(float);
        format.mChannelsPerFrame = 2;
        format.mBitsPerChannel = 8 * sizeof(float);
        if (AudioUnitSetProperty(m_unit, kAudioUnitProperty_StreamFormat, kAudioUnitScope_Input, outputBus,
                                 &format, sizeof format) != noErr)
            return false;
        m_rate = rate;
        m_initialized = AudioUnitInitialize(m_unit) == noErr;
        return m_initialized;
    }

    static OSStatus render(void* source, AudioUnitRenderActionFlags* flags, const AudioTimeStamp*, UInt32,
                           UInt32 frames, AudioBufferList* buffers) {
        if (buffers->mNumberBuffers < 2) return kAudio_ParamError;
        auto* const left = static_cast<float*>(buffers->mBuffers[0].mData);
        auto* const right = static_cast<float*>(buffers->mBuffers[1].mData);
        if (!left || !right) return kAudio_ParamError;
        if (!static_cast<ToneSource*>(source)->render(left, right, frames))
            *flags |= kAudioUnitRenderAction_OutputIsSilence;
        return noErr;
    }

    AudioUnit m_unit = nullptr;
    ToneSource m_source;
    double m_rate = 0;
    bool m_initialized = false;
};

} // namespace

std::unique_ptr<ToneEngine> MacToneOutput::makeEngine() {
    return std::make_unique<MacToneEngine>();
}

} // namespace tessivo

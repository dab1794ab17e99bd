#pragma once

#include <CoreAudio/CoreAudio.h>

using AudioUnitElement = UInt32;
using AudioUnitRenderActionFlags = UInt32;
using AudioFormatFlags = UInt32;
using AudioComponent = struct StandInComponent*;
using AudioUnit = struct StandInUnit*;

struct AudioTimeStamp;
struct AudioComponentDescription {
    OSType componentType;
    OSType componentSubType;
    OSType componentManufacturer;
    UInt32 componentFlags;
    UInt32 componentFlagsMask;
};
struct AudioStreamBasicDescription {
    double mSampleRate;
    UInt32 mFormatID;
    AudioFormatFlags mFormatFlags;
    UInt32 mBytesPerPacket;
    UInt32 mFramesPerPacket;
    UInt32 mBytesPerFrame;
    UInt32 mChannelsPerFrame;
    UInt32 mBitsPerChannel;
    UInt32 mReserved;
};
struct AudioBuffer {
    UInt32 mNumberChannels;
    UInt32 mDataByteSize;
    void* mData;
};
struct AudioBufferList {
    UInt32 mNumberBuffers;
    AudioBuffer mBuffers[2];
};
using AURenderCallback = OSStatus (*)(void* context, AudioUnitRenderActionFlags* flags,
                                      const AudioTimeStamp* time, UInt32 bus, UInt32 frames,
                                      AudioBufferList* data);
struct AURenderCallbackStruct {
    AURenderCallback inputProc;
    void* inputProcRefCon;
};

enum : UInt32 {
    kAudioUnitType_Output = 0x61756f75,           // "auou"
    kAudioUnitSubType_HALOutput = 0x6168616c,     // "ahal"
    kAudioUnitSubType_DefaultOutput = 0x64656620, // "def "
    kAudioUnitManufacturer_Apple = 0x6170706c,    // "appl"
    kAudioFormatLinearPCM = 0x6c70636d,           // "lpcm"
    kAudioFormatFlagsNativeFloatPacked = 1u | 8u,
    kAudioFormatFlagIsNonInterleaved = 1u << 5,
    kAudioUnitScope_Global = 0,
    kAudioUnitScope_Input = 1,
    kAudioUnitScope_Output = 2,
    kAudioUnitProperty_StreamFormat = 8,
    kAudioUnitProperty_SetRenderCallback = 23,
    kAudioOutputUnitProperty_CurrentDevice = 2000,
    kAudioOutputUnitProperty_IsRunning = 2001,
    kAudioUnitRenderAction_OutputIsSilence = 1u << 4,
};
constexpr OSStatus kAudio_ParamError = -50;

AudioComponent AudioComponentFindNext(AudioComponent after, const AudioComponentDescription* description);
OSStatus AudioComponentInstanceNew(AudioComponent component, AudioUnit* unit);
OSStatus AudioComponentInstanceDispose(AudioUnit unit);
OSStatus AudioUnitInitialize(AudioUnit unit);
OSStatus AudioUnitUninitialize(AudioUnit unit);
OSStatus AudioOutputUnitStart(AudioUnit unit);
OSStatus AudioOutputUnitStop(AudioUnit unit);
OSStatus AudioUnitGetProperty(AudioUnit unit, UInt32 property, UInt32 scope, AudioUnitElement element,
                              void* data, UInt32* size);
OSStatus AudioUnitSetProperty(AudioUnit unit, UInt32 property, UInt32 scope, AudioUnitElement element,
                              const void* data, UInt32 size);

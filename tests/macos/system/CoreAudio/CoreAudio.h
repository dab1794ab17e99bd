#pragma once

#include <CoreFoundation/CoreFoundation.h>

using AudioObjectID = UInt32;

struct AudioObjectPropertyAddress {
    UInt32 mSelector;
    UInt32 mScope;
    UInt32 mElement;
};
struct AudioValueTranslation {
    void* mInputData;
    UInt32 mInputDataSize;
    void* mOutputData;
    UInt32 mOutputDataSize;
};

enum : UInt32 {
    kAudioObjectPropertyElementMain = 0,
    kAudioObjectPropertyName = 0x6c6e616d,                        // "lnam"
    kAudioDevicePropertyDataSourceNameForIDCFString = 0x6c73636e, // "lscn"
};

Boolean AudioObjectHasProperty(AudioObjectID object, const AudioObjectPropertyAddress* address);
OSStatus AudioObjectGetPropertyDataSize(AudioObjectID object, const AudioObjectPropertyAddress* address,
                                        UInt32 qualifierSize, const void* qualifier, UInt32* size);
OSStatus AudioObjectGetPropertyData(AudioObjectID object, const AudioObjectPropertyAddress* address,
                                    UInt32 qualifierSize, const void* qualifier, UInt32* size, void* data);

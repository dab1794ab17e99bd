#pragma once

#include <CoreFoundation/CoreFoundation.h>

CFTypeRef IOPSCopyPowerSourcesInfo();
CFArrayRef IOPSCopyPowerSourcesList(CFTypeRef info);
CFDictionaryRef IOPSGetPowerSourceDescription(CFTypeRef info, CFTypeRef source);

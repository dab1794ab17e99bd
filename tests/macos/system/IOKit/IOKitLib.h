#pragma once

#include <CoreFoundation/CoreFoundation.h>

using kern_return_t = int;
using mach_port_t = UInt32;
using io_object_t = UInt32;
using io_iterator_t = io_object_t;
using io_service_t = io_object_t;
using io_registry_entry_t = io_object_t;
using IOOptionBits = UInt32;
using io_name_t = char[128];
using boolean_t = int;

constexpr kern_return_t KERN_SUCCESS = 0;
constexpr io_object_t IO_OBJECT_NULL = 0;
constexpr mach_port_t kIOMainPortDefault = 0;
#define kIOServicePlane "IOService"

CFMutableDictionaryRef IOServiceMatching(const char* name);
kern_return_t IOServiceGetMatchingServices(mach_port_t port, CFDictionaryRef matching,
                                           io_iterator_t* existing);
io_object_t IOIteratorNext(io_iterator_t iterator);
boolean_t IOIteratorIsValid(io_iterator_t iterator);
void IOIteratorReset(io_iterator_t iterator);
kern_return_t IOObjectRelease(io_object_t object);
CFStringRef IOObjectCopyClass(io_object_t object);
kern_return_t IORegistryEntryCreateCFProperties(io_registry_entry_t entry, CFMutableDictionaryRef* properties,
                                                CFAllocatorRef, IOOptionBits options);
kern_return_t IORegistryEntryGetParentEntry(io_registry_entry_t entry, const io_name_t plane,
                                            io_registry_entry_t* parent);

#include "tests/macos/system/StandIn.h"

#include <IOKit/IOKitLib.h>
#include <IOKit/ps/IOPowerSources.h>

using namespace tessivo;
using Object = StandIn::Object;

namespace {

StandIn& mac() {
    return StandIn::shared();
}

constexpr kern_return_t notFound = -536870160;

} // namespace

CFMutableDictionaryRef IOServiceMatching(const char* name) {
    if (!mac().enters("IOServiceMatching")) return nullptr;
    Object* made = mac().make(Object::Kind::dictionary, "the dictionary of IOServiceMatching");
    made->elements = {mac().keep("IOProviderClass"), mac().keep(name)};
    return reinterpret_cast<CFMutableDictionaryRef>(mac().own(made));
}

kern_return_t IOServiceGetMatchingServices(mach_port_t, CFDictionaryRef matching, io_iterator_t* existing) {
    Object* dictionary = mac().alive(matching, "IOServiceGetMatchingServices");
    std::string name;
    for (const char16_t unit : dictionary->elements[1]->text)
        name += char(unit);
    // Taken over, whatever comes.
    CFRelease(matching);
    const bool isKnown = mac().services.contains(name);
    if (!mac().enters("IOServiceGetMatchingServices") || (!isKnown && !mac().findsOthers)) return notFound;
    *existing = isKnown ? mac().iterator(name) : IO_OBJECT_NULL;
    return KERN_SUCCESS;
}

io_object_t IOIteratorNext(io_iterator_t iterator) {
    return mac().enters("IOIteratorNext") ? mac().next(iterator) : IO_OBJECT_NULL;
}

boolean_t IOIteratorIsValid(io_iterator_t iterator) {
    return mac().isValid(iterator);
}

void IOIteratorReset(io_iterator_t iterator) {
    mac().rewind(iterator);
}

kern_return_t IOObjectRelease(io_object_t object) {
    mac().releaseHandle(object);
    return KERN_SUCCESS;
}

CFStringRef IOObjectCopyClass(io_object_t object) {
    const auto service = mac().serviceOf(object, "IOObjectCopyClass");
    if (!mac().enters("IOObjectCopyClass")) return nullptr;
    Object* made = mac().copy(*mac().constant(service->className), "the class name of IOObjectCopyClass");
    made->isConstant = false;
    return reinterpret_cast<CFStringRef>(mac().own(made));
}

kern_return_t IORegistryEntryCreateCFProperties(io_registry_entry_t entry, CFMutableDictionaryRef* properties,
                                                CFAllocatorRef, IOOptionBits) {
    const auto service = mac().serviceOf(entry, "IORegistryEntryCreateCFProperties");
    if (!mac().enters("IORegistryEntryCreateCFProperties") || service->gone || !service->properties)
        return notFound;
    Object* made = mac().copy(*service->properties, "the properties of an entry " + service->className);
    *properties = reinterpret_cast<CFMutableDictionaryRef>(mac().own(made));
    return KERN_SUCCESS;
}

kern_return_t IORegistryEntryGetParentEntry(io_registry_entry_t entry, const io_name_t plane,
                                            io_registry_entry_t* parent) {
    const auto service = mac().serviceOf(entry, "IORegistryEntryGetParentEntry");
    if (std::string(plane) != kIOServicePlane) StandIn::fail("a parent asked for in another plane");
    if (!mac().enters("IORegistryEntryGetParentEntry") || service->gone || !service->parent) return notFound;
    *parent = mac().handle(service->parent);
    return KERN_SUCCESS;
}

CFTypeRef IOPSCopyPowerSourcesInfo() {
    if (!mac().enters("IOPSCopyPowerSourcesInfo") || !mac().powerSources) return nullptr;
    Object* made = mac().make(Object::Kind::data, "the info of IOPSCopyPowerSourcesInfo");
    for (const Object* source : *mac().powerSources) {
        made->elements.push_back(mac().copy(*source, "a power source's description"));
        made->elements.back()->kept = 1;
    }
    return mac().own(made);
}

CFArrayRef IOPSCopyPowerSourcesList(CFTypeRef info) {
    const Object* known = mac().alive(info, "IOPSCopyPowerSourcesList");
    if (!mac().enters("IOPSCopyPowerSourcesList")) return nullptr;
    Object* made = mac().make(Object::Kind::array, "the list of IOPSCopyPowerSourcesList");
    made->elements = known->elements;
    for (Object* element : made->elements)
        ++element->kept;
    return reinterpret_cast<CFArrayRef>(mac().own(made));
}

CFDictionaryRef IOPSGetPowerSourceDescription(CFTypeRef info, CFTypeRef source) {
    mac().alive(info, "IOPSGetPowerSourceDescription");
    Object* description = mac().alive(source, "IOPSGetPowerSourceDescription");
    if (!mac().enters("IOPSGetPowerSourceDescription")) return nullptr;
    return reinterpret_cast<CFDictionaryRef>(description);
}

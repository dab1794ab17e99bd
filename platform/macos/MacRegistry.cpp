#include "platform/macos/MacRegistry.h"

#include "platform/macos/CFRef.h"
#include "platform/macos/IOObject.h"
#include "platform/macos/PropertyValue.h"

#include <IOKit/ps/IOPowerSources.h>

namespace tessivo {

namespace {

constexpr int passes = 3; ///< at most, over a list that devices join or leave meanwhile

std::shared_ptr<const RegistryEntry> parentOf(io_object_t object);

RegistryEntry entry(const std::shared_ptr<const IOObject>& object) {
    RegistryEntry out;
    if (const CFRef<CFStringRef> name(IOObjectCopyClass(object->get())); name)
        out.className = PropertyValue::text(name.get());
    CFRef<CFMutableDictionaryRef> properties;
    if (IORegistryEntryCreateCFProperties(object->get(), properties.out(), kCFAllocatorDefault, 0) ==
        KERN_SUCCESS)
        out.properties = PropertyValue::map(properties.get());
    out.readParent = [object] { return parentOf(object->get()); };
    return out;
}

std::shared_ptr<const RegistryEntry> parentOf(io_object_t object) {
    IOObject parent;
    if (IORegistryEntryGetParentEntry(object, kIOServicePlane, parent.out()) != KERN_SUCCESS || !parent)
        return nullptr;
    return std::make_shared<const RegistryEntry>(entry(std::make_shared<const IOObject>(std::move(parent))));
}

/// All entries from the iterator's place to its end.
std::vector<RegistryEntry> entries(io_iterator_t iterator) {
    std::vector<RegistryEntry> out;
    while (IOObject object{IOIteratorNext(iterator)})
        out.push_back(entry(std::make_shared<const IOObject>(std::move(object))));
    return out;
}

} // namespace

std::optional<std::vector<RegistryEntry>> MacRegistry::matchingServices(const std::string& className) const {
    // The search takes the dictionary over, also where it fails.
    CFMutableDictionaryRef matching = IOServiceMatching(className.c_str());
    IOObject iterator;
    if (!matching ||
        IOServiceGetMatchingServices(kIOMainPortDefault, matching, iterator.out()) != KERN_SUCCESS)
        return std::nullopt;
    if (!iterator) return std::vector<RegistryEntry>();
    std::vector<RegistryEntry> fullest = entries(iterator.get());
    for (int pass = 1; pass < passes && !IOIteratorIsValid(iterator.get()); ++pass) {
        // A list that changed meanwhile ends early. Devices it left out would look new when they return.
        IOIteratorReset(iterator.get());
        auto again = entries(iterator.get());
        if (IOIteratorIsValid(iterator.get()) || again.size() > fullest.size()) fullest = std::move(again);
    }
    return fullest;
}

std::optional<PropertyList> MacPowerSources::descriptions() const {
    const CFRef<CFTypeRef> info(IOPSCopyPowerSourcesInfo());
    if (!info) return std::nullopt;
    const CFRef<CFArrayRef> sources(IOPSCopyPowerSourcesList(info.get()));
    if (!sources) return std::nullopt;
    PropertyList out;
    const CFIndex count = CFArrayGetCount(sources.get());
    for (CFIndex i = 0; i < count; ++i) {
        const CFTypeRef source = CFArrayGetValueAtIndex(sources.get(), i);
        if (auto description = PropertyValue::map(IOPSGetPowerSourceDescription(info.get(), source)))
            out.push_back(std::move(*description));
    }
    return out;
}

} // namespace tessivo

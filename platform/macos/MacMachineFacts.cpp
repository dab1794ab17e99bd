#include "platform/macos/MacMachineFacts.h"

#include "platform/macos/CFRef.h"
#include "platform/macos/PropertyValue.h"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <sys/sysctl.h>

namespace tessivo {

namespace {

constexpr int attempts = 4; ///< at a value that grows between the question for its size and its reading

/// "15.3.1" or "26.0"; nothing else.
std::optional<OperatingSystem> versionNumbers(std::string_view text) {
    OperatingSystem system;
    std::int64_t* const numbers[] = {&system.major, &system.minor, &system.patch};
    std::size_t count = 0;
    const char* at = text.data();
    const char* const end = at + text.size();
    for (;;) {
        const auto [next, fault] = std::from_chars(at, end, *numbers[count]);
        if (fault != std::errc() || *numbers[count] < 0) return std::nullopt;
        ++count;
        if (next == end) break;
        if (*next != '.' || count == std::size(numbers)) return std::nullopt;
        at = next + 1;
    }
    if (count < 2) return std::nullopt;
    return system;
}

} // namespace

std::optional<std::string> MacMachineFacts::sysctlbyname(const std::string& name) const {
    for (int attempt = 0; attempt < attempts; ++attempt) {
        std::size_t size = 0;
        if (::sysctlbyname(name.c_str(), nullptr, &size, nullptr, 0) != 0 || size == 0) return std::nullopt;
        std::string bytes(size, '\0');
        if (::sysctlbyname(name.c_str(), bytes.data(), &size, nullptr, 0) == 0) {
            bytes.resize(size);
            return bytes;
        }
        if (errno != ENOMEM) return std::nullopt;
    }
    return std::nullopt;
}

OperatingSystem MacMachineFacts::operatingSystem() const {
    const std::string bytes = sysctlbyname("kern.osproductversion").value_or("");
    const std::string_view text(bytes.c_str()); // up to its closing zero
    return versionNumbers(text).value_or(OperatingSystem{.title = "macOS"});
}

std::uint64_t MacMachineFacts::physicalMemory() const {
    const auto bytes = sysctlbyname("hw.memsize");
    std::uint64_t memory = 0;
    if (bytes && bytes->size() == sizeof memory) std::memcpy(&memory, bytes->data(), sizeof memory);
    return memory;
}

std::optional<std::int64_t> MacMachineFacts::startupVolumeTotalCapacity() const {
    const CFRef<CFURLRef> root(
        CFURLCreateWithFileSystemPath(kCFAllocatorDefault, CFSTR("/"), kCFURLPOSIXPathStyle, true));
    if (!root) return std::nullopt;
    // Failing leaves the pointer as it was; success with null means that the volume doesn't tell.
    CFRef<CFTypeRef> capacity;
    if (!CFURLCopyResourcePropertyForKey(root.get(), kCFURLVolumeTotalCapacityKey, capacity.out(), nullptr))
        return std::nullopt;
    const auto value = PropertyValue::value(capacity.get());
    const auto* bytes = value ? std::get_if<std::int64_t>(&value->value) : nullptr;
    return bytes ? std::optional(*bytes) : std::nullopt;
}

} // namespace tessivo

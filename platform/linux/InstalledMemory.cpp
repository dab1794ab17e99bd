#include "platform/linux/InstalledMemory.h"

#include "kit/support/Text.h"
#include "platform/linux/Firmware.h"

#include <algorithm>
#include <limits>
#include <unistd.h>

namespace tessivo::InstalledMemory {

namespace {

constexpr std::int64_t kibi = 1024;
constexpr std::int64_t gibi = kibi * kibi * kibi;

/// In gibibytes.
constexpr std::int64_t soldSizes[] = {8, 16, 18, 24, 32, 36, 48, 64, 96, 128, 192, 256, 512};
constexpr std::int64_t largestShareKept = 12; // percent of a size

std::optional<std::int64_t> product(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    if (a <= 0 || b <= 0 || __builtin_mul_overflow(a, b, &result)) return std::nullopt;
    return result;
}

/// "MemTotal:       16252928 kB"
std::optional<std::int64_t> usable(const SystemTree& tree) {
    constexpr std::string_view key = "MemTotal:", unit = " kB";
    for (const std::string& line : Text::lines(tree.text("proc/meminfo").value_or(""))) {
        if (!line.starts_with(key) || !line.ends_with(unit)) continue;
        const auto number =
            wholeNumber(Text::trimmed(line.substr(key.size(), line.size() - key.size() - unit.size())));
        return number ? product(*number, kibi) : std::nullopt;
    }
    if (!tree.isThisComputer()) return std::nullopt;
    return product(::sysconf(_SC_PHYS_PAGES), ::sysconf(_SC_PAGESIZE));
}

/// The sum of "E:MEMORY_DEVICE_0_SIZE=8589934592" over all modules. Nothing if one of them isn't understood.
std::optional<std::int64_t> modules(const SystemTree& tree) {
    constexpr std::string_view start = "E:MEMORY_DEVICE_", end = "_SIZE";
    std::int64_t sum = 0;
    for (const std::string& line : Text::lines(tree.text("run/udev/data/+dmi:id").value_or(""))) {
        const std::string key = line.substr(0, line.find('='));
        if (!key.starts_with(start) || !key.ends_with(end) || key.size() <= start.size() + end.size())
            continue;
        // "..._CACHE_SIZE" and the like are no module's own size.
        if (!wholeNumber(key.substr(start.size(), key.size() - start.size() - end.size()))) continue;
        const auto size = wholeNumber(line.substr(std::min(key.size() + 1, line.size())));
        if (!size || *size < 0 || __builtin_add_overflow(sum, *size, &sum)) return std::nullopt;
    }
    return sum > 0 ? std::optional(sum) : std::nullopt;
}

std::optional<std::int64_t> blocks(const SystemTree& tree) {
    const std::string folder = "sys/devices/system/memory/";
    const auto size = tree.number(folder + "block_size_bytes", 16);
    if (!size) return std::nullopt;
    std::int64_t online = 0;
    for (const std::string& name : tree.names(folder).value_or(std::vector<std::string>()))
        if (name.starts_with("memory") && wholeNumber(name.substr(std::string_view("memory").size())) &&
            tree.text(folder + name + "/state") == "online")
            ++online;
    return product(online, *size);
}

std::optional<std::int64_t> soldSize(std::int64_t usable) {
    for (const std::int64_t size : soldSizes) {
        const std::int64_t whole = size * gibi;
        if (whole < usable) continue;
        if (whole - usable <= whole / 100 * largestShareKept) return whole;
        break;
    }
    return std::nullopt;
}

} // namespace

std::optional<std::int64_t> bytes(const SystemTree& tree) {
    const auto total = usable(tree);
    if (const auto sum = modules(tree); sum && *sum >= total.value_or(0)) return sum;
    auto online = blocks(tree);
    if (online && *online < total.value_or(0)) online.reset();
    if (!Firmware::isMac(tree)) return online ? online : total;
    const bool isWhole = online && *online % gibi == 0 && !Firmware::appleChip(tree);
    if (!isWhole && total)
        if (const auto sold = soldSize(*total)) return sold;
    return online ? online : total;
}

} // namespace tessivo::InstalledMemory

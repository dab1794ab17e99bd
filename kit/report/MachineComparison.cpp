#include "kit/report/MachineComparison.h"

#include "kit/support/Text.h"

#include <algorithm>
#include <cmath>

namespace tessivo::MachineComparison {
namespace {

bool hasModel(const MachineInfo& machine) {
    return !machine.modelID.empty() && machine.modelID != MachineInfo::unknownModel;
}

std::optional<std::string> modelText(const MachineInfo& machine) {
    if (!hasModel(machine)) return std::nullopt;
    const std::string name = machine.displayName();
    return name == machine.modelID ? name : name + ", " + machine.modelID;
}

std::optional<std::int64_t> memoryGB(const MachineInfo& machine) {
    if (machine.memoryBytes == 0) return std::nullopt;
    return std::llround(std::ldexp(double(machine.memoryBytes), -30));
}

std::optional<std::int64_t> driveBytes(const MachineInfo& machine) {
    return machine.storageBytes && *machine.storageBytes > 0 ? machine.storageBytes : std::nullopt;
}

/// The drive's size behind the words of the test, where they don't tell it.
void addSize(std::vector<std::string>& lines, const MachineInfo& machine) {
    const std::string size = *machine.storageText();
    if (lines.empty() || lines.front().find(size) == std::string::npos) lines.push_back("Drive: " + size);
}

std::vector<std::string> asLines(std::optional<std::string> text) {
    return text ? std::vector<std::string>{std::move(*text)} : std::vector<std::string>{};
}

void addFact(std::vector<ComparedItem>& items, const char* name, std::optional<std::string> before,
             std::optional<std::string> after, Change change, std::optional<std::string> remark = {}) {
    if (!before && !after) return;
    ComparedItem item;
    item.name = name;
    item.change = change;
    item.remark = std::move(remark);
    item.before = asLines(std::move(before));
    item.after = asLines(std::move(after));
    items.push_back(std::move(item));
}

void addMemory(std::vector<ComparedItem>& items, const MachineInfo& before, const MachineInfo& after) {
    const auto was = memoryGB(before), is = memoryGB(after);
    Change change = was == is ? Change::unchanged : Change::changed;
    std::optional<std::string> remark;
    if (was && is && *is < *was) {
        change = Change::worse;
        remark = "less memory";
    }
    const auto text = [](std::optional<std::int64_t> size) {
        return size ? std::optional(std::to_string(*size) + " GB") : std::nullopt;
    };
    addFact(items, "Memory", text(was), text(is), change, remark);
}

/// Below, at or above zero: a smaller drive, one sold as the same size, a larger one.
int driveOrder(const MachineInfo& before, const MachineInfo& after) {
    const auto was = before.marketedStorageGB(), is = after.marketedStorageGB();
    if (was && is) return *is < *was ? -1 : *is > *was;
    // Of a size that isn't sold the bytes decide, as far as they are written out.
    if (!was && !is && before.storageText() == after.storageText()) return 0;
    return *after.storageBytes < *before.storageBytes ? -1 : 1;
}

} // namespace

std::optional<std::string> serial(const MachineInfo& machine) {
    std::string text = Text::trimmed(machine.serial.value_or(""));
    if (text.empty()) return std::nullopt;
    return text;
}

SameMac sameMac(const MachineInfo& before, const MachineInfo& after) {
    const auto was = serial(before), is = serial(after);
    const bool bothModels = hasModel(before) && hasModel(after);
    const bool otherModel = bothModels && before.modelID != after.modelID;
    if (was && is) {
        if (*was != *is) return SameMac::no;
        if (otherModel) return SameMac::contradicting;
        return bothModels ? SameMac::yes : SameMac::cantTell;
    }
    return otherModel ? SameMac::no : SameMac::cantTell;
}

std::vector<ComparedItem> items(const MachineInfo& before, const MachineInfo& after) {
    std::vector<ComparedItem> items;
    const auto of = [](bool same) { return same ? Change::unchanged : Change::changed; };
    addFact(items, "Serial number", serial(before), serial(after), of(serial(before) == serial(after)));
    addFact(items, "Model", modelText(before), modelText(after), of(modelText(before) == modelText(after)));
    addMemory(items, before, after);
    return items;
}

void addDrive(ComparedItem& storage, const MachineInfo& before, const MachineInfo& after) {
    const auto was = driveBytes(before), is = driveBytes(after);
    if (!was && !is) return;
    Change change = Change::unchanged;
    std::optional<std::string> remark;
    if (was && !is) {
        change = Change::notConfirmed;
        remark = "its size wasn't read";
    } else if (!was) {
        change = Change::changed;
    } else if (const int order = driveOrder(before, after); order != 0) {
        change = order < 0 ? Change::worse : Change::changed;
        remark = order < 0 ? "a smaller drive" : "another drive?";
    }
    storage.change = std::min(storage.change, change);
    if (remark) storage.remark = remark;
    if (change == Change::unchanged && !(storage.before.empty() && storage.after.empty())) return;
    if (was) addSize(storage.before, before);
    if (is) addSize(storage.after, after);
}

} // namespace tessivo::MachineComparison

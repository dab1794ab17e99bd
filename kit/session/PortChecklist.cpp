#include "kit/session/PortChecklist.h"

#include <algorithm>

namespace tessivo {
namespace {

PortSlot* find(std::vector<PortSlot>& slots, std::int64_t id) {
    const auto found = std::ranges::find(slots, id, &PortSlot::id);
    return found == slots.end() ? nullptr : &*found;
}

/// The number after the last slot's; a hand-edited one may stand at the end of the range.
std::int64_t nextID(const std::vector<PortSlot>& slots) {
    return slots.empty() ? 1 : std::int64_t(std::uint64_t(slots.back().id) + 1);
}

/// The new device to credit: whatever hangs behind a hub counts before the hub.
const USBDevice* freshDevice(const std::vector<USBDevice>& devices, const std::set<std::string>& known) {
    const USBDevice* hub = nullptr;
    for (const USBDevice& device : devices) {
        if (known.contains(device.id()) || device.isInternalHub() || device.builtIn) continue;
        if (!device.isHub()) return &device;
        if (!hub) hub = &device;
    }
    return hub;
}

} // namespace

std::string PortSlot::title() const {
    return "Port " + std::to_string(id);
}

bool PortSlot::passed() const {
    return device || answer == ManualAnswer::works;
}

bool PortSlot::isTouched() const {
    return device || answer != ManualAnswer::unanswered;
}

PortChecklist PortChecklist::make(std::int64_t count) {
    PortChecklist checklist;
    for (std::int64_t id = 1; id <= std::max<std::int64_t>(count, 1); ++id)
        checklist.slots.push_back({.id = id});
    checklist.active = 1;
    return checklist;
}

void PortChecklist::setPortCount(std::int64_t count) {
    const std::int64_t bounded = std::clamp(count, smallestCount, largestCount);
    if (slots.size() > std::size_t(bounded)) slots.resize(std::size_t(bounded));
    while (slots.size() < std::size_t(bounded))
        slots.push_back({.id = nextID(slots)});
    if (!active || *active > bounded) active = firstOpen();
}

std::optional<USBDevice> PortChecklist::update(const std::vector<USBDevice>& devices) {
    std::optional<USBDevice> credited;
    PortSlot* slot = baselineTaken && active ? find(slots, *active) : nullptr;
    const USBDevice* fresh = slot ? freshDevice(devices, known) : nullptr;
    if (fresh) {
        credited = *fresh;
        slot->device = *fresh;
        slot->answer = ManualAnswer::works;
        active = firstOpen();
    }
    // Replaced, not added to: a device that was unplugged is new again and can tick the next port.
    known.clear();
    for (const USBDevice& device : devices)
        known.insert(device.id());
    baselineTaken = true;
    return credited;
}

void PortChecklist::answer(std::int64_t slotID, ManualAnswer answer) {
    PortSlot* slot = find(slots, slotID);
    if (!slot) return;
    slot->answer = answer;
    if (answer == ManualAnswer::works) return;
    slot->device.reset();
    if (answer == ManualAnswer::problem && active == slotID) active = firstOpen();
}

std::optional<std::int64_t> PortChecklist::firstOpen() const {
    for (const PortSlot& slot : slots) {
        const bool isSettled =
            slot.device || slot.answer == ManualAnswer::works || slot.answer == ManualAnswer::problem;
        if (!isSettled) return slot.id;
    }
    return std::nullopt;
}

bool PortChecklist::hasActivity() const {
    return std::ranges::any_of(slots, &PortSlot::isTouched);
}

} // namespace tessivo

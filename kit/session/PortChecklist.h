#pragma once

#include "kit/hardware/USBDevice.h"
#include "kit/vocabulary/ManualAnswer.h"

#include <set>
#include <vector>

namespace tessivo {

/// One row of the port-by-port test.
struct PortSlot {
    std::int64_t id = 0; ///< the port's number, from 1
    std::optional<USBDevice> device;
    ManualAnswer answer = ManualAnswer::unanswered;

    std::string title() const; ///< "Port 1"
    bool passed() const;
    bool isTouched() const; ///< has a device or an answer

    bool operator==(const PortSlot&) const = default;
};
BOOST_DESCRIBE_STRUCT(PortSlot, (), (id, device, answer))

/// The state machine that credits the first new device to the port that waits for one.
struct PortChecklist {
    static constexpr std::int64_t smallestCount = 1;
    static constexpr std::int64_t largestCount = 8;

    std::vector<PortSlot> slots;
    std::optional<std::int64_t> active; ///< id of the slot that waits for a device
    std::set<std::string> known;        ///< ids of the devices seen at the last update
    bool baselineTaken = false;

    static PortChecklist make(std::int64_t count);

    /// Bounded to 1 to 8; the last slots go with what they held.
    void setPortCount(std::int64_t count);
    /// Takes one scan; gives the device that ticked a slot, if one did.
    std::optional<USBDevice> update(const std::vector<USBDevice>& devices);
    void answer(std::int64_t slotID, ManualAnswer answer);
    std::optional<std::int64_t> firstOpen() const;
    bool hasActivity() const;

    bool operator==(const PortChecklist&) const = default;
};
BOOST_DESCRIBE_STRUCT(PortChecklist, (), (slots, active, known, baselineTaken))

} // namespace tessivo

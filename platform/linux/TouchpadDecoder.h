#pragma once

#include "platform/Input.h"

#include <limits>

struct input_event;

namespace tessivo {

/// From a touchpad's raw events to the fingers now on it. It is given the events in order and the ranges
/// the device states; it knows no file. Pure, one thread.
class TouchpadDecoder final {
public:
    struct Range {
        int minimum = 0;
        int maximum = 0;
    };
    /// What the kernel knows of a slot; a slot without a finger has the tracking number -1.
    struct Slot {
        static constexpr int unknown = std::numeric_limits<int>::min();

        int trackingID = -1;
        int x = unknown;
        int y = unknown;
        int distance = 0; ///< above 0 the finger hovers and doesn't touch
    };

    /// A device with an empty range has no fingers.
    TouchpadDecoder(Range x, Range y, std::size_t slotCount);

    /// True if the event ends a report in which the fingers may have changed. After an event that tells of
    /// lost ones every finger is forgotten, and what comes before the next report's end passed over.
    bool handle(const input_event& event);

    /// The device's slots as the kernel has them now, after lost events; `current` is the one that further
    /// events are for.
    void resync(const std::vector<Slot>& state, std::size_t current, int fingerCount);

    /// Fingers counted by the device, also those it can't place.
    int fingerCount() const;
    /// One position for each finger counted, with the kernel's tracking number; one that the device can't
    /// place stands at the last placed one.
    std::vector<FingerPosition> fingers() const;

private:
    void change(int Slot::* field, int value);

    Range m_x, m_y;
    std::vector<Slot> m_slots;
    std::size_t m_current = 0;
    int m_counted = 0; // by the device's own tool bits
    bool m_lost = false;
};

} // namespace tessivo

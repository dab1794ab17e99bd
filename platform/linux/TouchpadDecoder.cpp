#include "platform/linux/TouchpadDecoder.h"

#include <algorithm>
#include <array>
#include <linux/input.h>

namespace tessivo {
namespace {

/// The tool bit for so many fingers: index 0 is one finger.
constexpr std::array<int, 5> tools = {BTN_TOOL_FINGER, BTN_TOOL_DOUBLETAP, BTN_TOOL_TRIPLETAP,
                                      BTN_TOOL_QUADTAP, BTN_TOOL_QUINTTAP};

double fraction(int value, const TouchpadDecoder::Range& range) {
    const double span = double(range.maximum) - range.minimum;
    return std::clamp((double(value) - range.minimum) / span, 0.0, 1.0);
}

bool touches(const TouchpadDecoder::Slot& slot) {
    // The kernel repeats no value that a slot has already; after lost events a place may thus be half known.
    const bool placed = slot.x != TouchpadDecoder::Slot::unknown && slot.y != TouchpadDecoder::Slot::unknown;
    return slot.trackingID >= 0 && slot.distance <= 0 && placed;
}

} // namespace

TouchpadDecoder::TouchpadDecoder(Range x, Range y, std::size_t slotCount)
    : m_x(x), m_y(y), m_slots(x.maximum > x.minimum && y.maximum > y.minimum ? slotCount : 0) {}

bool TouchpadDecoder::handle(const input_event& event) {
    if (event.type == EV_SYN && event.code == SYN_DROPPED) {
        m_lost = true;
        std::ranges::fill(m_slots, Slot{});
        m_current = m_slots.size();
        m_counted = 0;
        return false;
    }
    const bool reportEnds = event.type == EV_SYN && event.code == SYN_REPORT;
    if (m_lost) {
        if (reportEnds) m_lost = false;
        return reportEnds;
    }
    if (event.type == EV_KEY) {
        const auto tool = std::ranges::find(tools, event.code);
        if (tool == tools.end()) return false;
        const int count = int(tool - tools.begin()) + 1;
        // The old count is released and the new one pressed, in either order.
        if (event.value != 0)
            m_counted = count;
        else if (m_counted == count)
            m_counted = 0;
    } else if (event.type == EV_ABS) {
        switch (event.code) {
        case ABS_MT_SLOT:
            // A slot that the device never stated takes no events.
            m_current = event.value < 0 ? m_slots.size() : std::size_t(event.value);
            break;
        case ABS_MT_TRACKING_ID:
            change(&Slot::trackingID, event.value);
            break;
        case ABS_MT_POSITION_X:
            change(&Slot::x, event.value);
            break;
        case ABS_MT_POSITION_Y:
            change(&Slot::y, event.value);
            break;
        case ABS_MT_DISTANCE:
            change(&Slot::distance, event.value);
            break;
        default:
            break;
        }
    }
    return reportEnds;
}

void TouchpadDecoder::change(int Slot::* field, int value) {
    if (m_current < m_slots.size()) m_slots[m_current].*field = value;
}

void TouchpadDecoder::resync(const std::vector<Slot>& state, std::size_t current, int fingerCount) {
    m_lost = false;
    std::ranges::fill(m_slots, Slot{});
    std::copy_n(state.begin(), std::min(state.size(), m_slots.size()), m_slots.begin());
    m_current = current;
    m_counted = fingerCount;
}

int TouchpadDecoder::fingerCount() const {
    const auto placed = int(std::ranges::count_if(m_slots, touches));
    // Fingers that hover are counted by the tool bits, but there only.
    return placed == 0 ? 0 : std::max(placed, m_counted);
}

std::vector<FingerPosition> TouchpadDecoder::fingers() const {
    std::vector<FingerPosition> positions;
    for (const Slot& slot : m_slots)
        if (touches(slot))
            positions.push_back({fraction(slot.x, m_x), fraction(slot.y, m_y), slot.trackingID});
    if (!positions.empty()) positions.resize(std::size_t(fingerCount()), positions.back());
    return positions;
}

} // namespace tessivo

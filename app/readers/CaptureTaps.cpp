#include "app/readers/CaptureTaps.h"

#include "kit/hardware/LevelMeter.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tessivo {

void CaptureTap::openFailed(OpenFault fault) {
    const std::lock_guard lock(m_mutex);
    m_fault = fault;
}

std::optional<OpenFault> CaptureTap::fault() const {
    const std::lock_guard lock(m_mutex);
    return m_fault;
}

void LevelTap::audio(const AudioBuffer& buffer) {
    const auto level = LevelMeter::loudestChannel(buffer.samples, buffer.channelCount);
    if (!level) return;
    // Samples that aren't numbers read as silence, but they are no silence that was heard.
    if (*level <= LevelMeter::silence &&
        !std::ranges::all_of(buffer.samples, [](float sample) { return std::isfinite(sample); }))
        return;
    const std::lock_guard lock(m_mutex);
    m_peak = std::max(float(*level), m_peak.value_or(float(LevelMeter::silence)));
}

std::optional<float> LevelTap::take() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_peak, std::nullopt);
}

void FrameTap::video(const QImage& frame) {
    QImage old; // let go of outside the lock
    const std::lock_guard lock(m_mutex);
    ++m_frames;
    old = std::exchange(m_newest, frame);
}

std::int64_t FrameTap::frames() const {
    const std::lock_guard lock(m_mutex);
    return m_frames;
}

QImage FrameTap::newest() const {
    const std::lock_guard lock(m_mutex);
    return m_newest;
}

} // namespace tessivo

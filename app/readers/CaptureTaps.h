#pragma once

#include "platform/Capture.h"

#include <mutex>

namespace tessivo {

/// The loudest level since it was last taken. Written by a capture thread, taken by the main thread.
class LevelTap final : public CaptureDelegate {
public:
    void audio(const AudioBuffer& buffer) override;
    void openFailed(OpenFault fault) override;
    /// Why the device doesn't open, if it doesn't.
    std::optional<OpenFault> fault() const;
    /// In dB; leaves nothing behind.
    std::optional<float> take();

private:
    mutable std::mutex m_mutex;
    std::optional<float> m_peak;
    std::optional<OpenFault> m_fault;
};

/// Counts frames and keeps the newest. Written by a capture thread, read by the main thread.
class FrameTap final : public CaptureDelegate {
public:
    void video(const QImage& frame) override;
    void openFailed(OpenFault fault) override;
    /// Why the device doesn't open, if it doesn't.
    std::optional<OpenFault> fault() const;
    std::int64_t frames() const;
    /// Null before the first frame.
    QImage newest() const;

private:
    mutable std::mutex m_mutex;
    std::int64_t m_frames = 0;
    QImage m_newest;
    std::optional<OpenFault> m_fault;
};

} // namespace tessivo

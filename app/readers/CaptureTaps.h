#pragma once

#include "platform/Capture.h"

#include <mutex>

namespace tessivo {

/// Keeps why the device doesn't open, if it doesn't. Written by a capture thread, read by the main thread.
class CaptureTap : public CaptureDelegate {
public:
    void openFailed(OpenFault fault) override;
    std::optional<OpenFault> fault() const;

protected:
    mutable std::mutex m_mutex;

private:
    std::optional<OpenFault> m_fault;
};

/// The loudest level since it was last taken. Written by a capture thread, taken by the main thread.
class LevelTap final : public CaptureTap {
public:
    void audio(const AudioBuffer& buffer) override;
    /// In dB; leaves nothing behind.
    std::optional<float> take();

private:
    std::optional<float> m_peak;
};

/// Counts frames and keeps the newest. Written by a capture thread, read by the main thread.
class FrameTap final : public CaptureTap {
public:
    void video(const QImage& frame) override;
    std::int64_t frames() const;
    /// Null before the first frame.
    QImage newest() const;

private:
    std::int64_t m_frames = 0;
    QImage m_newest;
};

} // namespace tessivo
